#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/presentation/SpeciesMatches.h"
#include "app/presentation/StorePresenter.h"

namespace ornivo::app {

/// The field in which a species is named, and what it suggests.
class SpeciesSearch : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString placeholder READ placeholder CONSTANT)
    /// Whether anything was typed that could be a species.
    Q_PROPERTY(bool canSetTarget READ canSetTarget NOTIFY changed)
    Q_PROPERTY(ornivo::app::SpeciesMatches* suggestions READ suggestions CONSTANT)

public:
    using StorePresenter::StorePresenter;

    QString placeholder() const;
    bool canSetTarget() const { return canSetTarget_; }
    SpeciesMatches* suggestions() { return &suggestions_; }

    /// Takes a suggestion, by its row, as a target.
    Q_INVOKABLE void choose(int row);

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    void lookUp();

    bool canSetTarget_ = false;
    SpeciesMatches suggestions_;
};

}  // namespace ornivo::app
