#pragma once

#include <QtQml/qqmlregistration.h>

#include <QVariantList>

#include "app/presentation/OptionsText.h"
#include "app/presentation/StorePresenter.h"
#include "app/presentation/Variants.h"

namespace ornivo::app {

/// The card of options.
class OptionsPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool keepsOriginals READ keepsOriginals NOTIFY changed)
    Q_PROPERTY(QString originalsNote READ originalsNote NOTIFY changed)
    Q_PROPERTY(bool showsNaming READ showsNaming NOTIFY changed)
    /// The rows of the call levels, `Choice`s.
    Q_PROPERTY(QVariantList levels READ levels CONSTANT)
    Q_PROPERTY(ornivo::app::CallLevelText call READ call NOTIFY changed)
    Q_PROPERTY(QString explanation READ explanation CONSTANT)

public:
    using StorePresenter::StorePresenter;

    bool keepsOriginals() const { return keepsOriginals_; }
    QString originalsNote() const { return app::originalsNote(!keepsOriginals_); }
    bool showsNaming() const { return showsNaming_; }
    QVariantList levels() const { return variants(callLevelChoices()); }
    const CallLevelText& call() const { return call_; }
    QString explanation() const { return callLevelExplanation(); }

    Q_INVOKABLE void keepOriginals() { store()->setOriginals(AppStore::Originals::Keep); }
    Q_INVOKABLE void trashOriginals() { store()->setOriginals(AppStore::Originals::Trash); }
    /// A level by its place in `levels`.
    Q_INVOKABLE void chooseLevel(int row);
    /// A position of the slider, rounded.
    Q_INVOKABLE void fineTune(double position);

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    void refresh();

    bool keepsOriginals_ = true;
    bool showsNaming_ = true;
    CallLevelText call_;
};

}  // namespace ornivo::app
