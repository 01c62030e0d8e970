#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/presentation/StorePresenter.h"
#include "app/presentation/TargetSpeciesModel.h"

namespace ornivo::app {

/// The card of the species to find.
class TargetSpeciesPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(ornivo::app::TargetSpeciesModel* species READ species CONSTANT)
    /// Empty while the classifier knows them all.
    Q_PROPERTY(QString unrecognisedMessage READ unrecognisedMessage NOTIFY changed)

public:
    using StorePresenter::StorePresenter;

    TargetSpeciesModel* species() { return &species_; }
    const QString& unrecognisedMessage() const { return unrecognisedMessage_; }

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    void refresh();

    TargetSpeciesModel species_;
    QString unrecognisedMessage_;
};

}  // namespace ornivo::app
