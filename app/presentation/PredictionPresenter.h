#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/presentation/PredictionText.h"
#include "app/presentation/StorePresenter.h"

namespace ornivo::app {

/// The card of the latest identification.
class PredictionPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ornivo::app::PredictionText text READ text NOTIFY changed)

public:
    using StorePresenter::StorePresenter;

    const PredictionText& text() const { return text_; }

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    void refresh();

    PredictionText text_;
};

}  // namespace ornivo::app
