#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/presentation/CardsShown.h"
#include "app/presentation/StorePresenter.h"

namespace ornivo::app {

/// The column of cards.
class CardsPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ornivo::app::CardsShown shown READ shown NOTIFY changed)

public:
    using StorePresenter::StorePresenter;

    const CardsShown& shown() const { return shown_; }

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    void refresh();

    CardsShown shown_;
};

}  // namespace ornivo::app
