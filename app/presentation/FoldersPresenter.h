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

    /// Empty while no folder is chosen.
    Q_PROPERTY(QString source READ source NOTIFY sourceChanged)
    Q_PROPERTY(QString sink READ sink NOTIFY sinkChanged)
    Q_PROPERTY(ornivo::app::TonedText status READ status NOTIFY statusChanged)
    Q_PROPERTY(ornivo::app::TonedText advice READ advice NOTIFY adviceChanged)
    /// `RecentFolder`s, in the order of the store's.
    Q_PROPERTY(QVariantList recentSources READ recentSources NOTIFY recentChanged)
    Q_PROPERTY(QVariantList recentSinks READ recentSinks NOTIFY recentChanged)

public:
    using StorePresenter::StorePresenter;

    const QString& source() const { return source_; }
    const QString& sink() const { return sink_; }
    const TonedText& status() const { return status_; }
    const TonedText& advice() const { return advice_; }
    const QVariantList& recentSources() const { return recentSources_; }
    const QVariantList& recentSinks() const { return recentSinks_; }

Q_SIGNALS:
    void sourceChanged();
    void sinkChanged();
    void statusChanged();
    void adviceChanged();
    void recentChanged();

protected:
    void follow(AppStore& store) override;

private:
    void refreshSource();
    void refreshSink();
    void refreshStatus();
    void refreshAdvice();
    void refreshRecent();

    QString source_;
    QString sink_;
    TonedText status_;
    TonedText advice_;
    QVariantList recentSources_;
    QVariantList recentSinks_;
};

}  // namespace ornivo::app
