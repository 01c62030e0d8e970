#pragma once

#include <QtQml/qqmlregistration.h>

#include <QVariantList>

#include "app/presentation/ResultText.h"
#include "app/presentation/StorePresenter.h"

namespace ornivo::app {

/// The card of a finished run. Each list is of `TonedText`s.
class ResultPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QVariantList outcome READ outcome NOTIFY changed)
    Q_PROPERTY(QVariantList warnings READ warnings NOTIFY changed)
    Q_PROPERTY(QVariantList ending READ ending NOTIFY changed)

public:
    using StorePresenter::StorePresenter;

    const QVariantList& outcome() const { return outcome_; }
    const QVariantList& warnings() const { return warnings_; }
    const QVariantList& ending() const { return ending_; }

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    ResultText text() const;
    void refresh();

    QVariantList outcome_;
    QVariantList warnings_;
    QVariantList ending_;
};

}  // namespace ornivo::app
