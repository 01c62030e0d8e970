#include "app/presentation/TargetSpeciesPresenter.h"

#include "identification/BirdClassifierLabels.h"
#include "identification/TargetSpecies.h"

namespace ornivo::app {

void TargetSpeciesPresenter::follow(AppStore& store) {
    connect(&store, &AppStore::selectedSpeciesListChanged, this, &TargetSpeciesPresenter::refresh);
    refresh();
}

void TargetSpeciesPresenter::refresh() {
    species_.show(store()->selectedSpeciesList());
    unrecognisedMessage_ = QString::fromStdString(TargetSpecies::unrecognisedMessage(
        store()->unrecognisedTargets(), BirdClassifierLabels::speciesCount()));
    Q_EMIT changed();
}

}  // namespace ornivo::app
