#pragma once

#include <QtQml/qqmlregistration.h>

#include <QVariantList>

#include "app/presentation/FoldersText.h"
#include "app/presentation/StorePresenter.h"

namespace ornivo::app {

/// The card of folders.
class FoldersPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT

    /// Each folder's path, or its hint while none is chosen.
    Q_PROPERTY(ornivo::app::TonedText source READ source NOTIFY sourceChanged)
    Q_PROPERTY(ornivo::app::TonedText sink READ sink NOTIFY sinkChanged)
    Q_PROPERTY(QString sourceHint READ sourceHint CONSTANT)
    Q_PROPERTY(QString sinkHint READ sinkHint CONSTANT)
    /// Whether the folders can't be changed now.
    Q_PROPERTY(bool isLocked READ isLocked NOTIFY lockedChanged)
    Q_PROPERTY(ornivo::app::TonedText status READ status NOTIFY statusChanged)
    Q_PROPERTY(ornivo::app::TonedText advice READ advice NOTIFY adviceChanged)
    /// `RecentFolder`s, in the order of the store's.
    Q_PROPERTY(QVariantList recentSources READ recentSources NOTIFY recentChanged)
    Q_PROPERTY(QVariantList recentSinks READ recentSinks NOTIFY recentChanged)

public:
    using StorePresenter::StorePresenter;

    const TonedText& source() const { return source_; }
    const TonedText& sink() const { return sink_; }
    QString sourceHint() const { return app::sourceHint(); }
    QString sinkHint() const { return app::sinkHint(); }
    bool isLocked() const { return isLocked_; }
    const TonedText& status() const { return status_; }
    const TonedText& advice() const { return advice_; }
    const QVariantList& recentSources() const { return recentSources_; }
    const QVariantList& recentSinks() const { return recentSinks_; }

Q_SIGNALS:
    void sourceChanged();
    void sinkChanged();
    void lockedChanged();
    void statusChanged();
    void adviceChanged();
    void recentChanged();

protected:
    void follow(AppStore& store) override;

private:
    void refreshSource();
    void refreshSink();
    void refreshLock();
    void refreshStatus();
    void refreshAdvice();
    void refreshRecent();

    TonedText source_;
    TonedText sink_;
    bool isLocked_ = false;
    TonedText status_;
    TonedText advice_;
    QVariantList recentSources_;
    QVariantList recentSinks_;
};

}  // namespace ornivo::app
