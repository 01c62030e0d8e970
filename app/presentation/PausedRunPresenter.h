#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/presentation/PausedRunText.h"
#include "app/presentation/StorePresenter.h"

namespace ornivo::app {

/// The card of a run that can be gone on with.
class PausedRunPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ornivo::app::PausedRunText text READ text NOTIFY changed)

public:
    using StorePresenter::StorePresenter;

    const PausedRunText& text() const { return text_; }

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    void refresh();

    PausedRunText text_;
};

}  // namespace ornivo::app
