#include "app/presentation/CardsPresenter.h"

namespace ornivo::app {

void CardsPresenter::follow(AppStore& store) {
    for (const auto changed : {&AppStore::jobStateChanged, &AppStore::appModeChanged,
                               &AppStore::pausedRunChanged, &AppStore::selectedSpeciesListChanged,
                               &AppStore::progressChanged, &AppStore::predictionChanged,
                               &AppStore::sortResultChanged, &AppStore::findResultChanged}) {
        connect(&store, changed, this, &CardsPresenter::refresh);
    }
    refresh();
}

void CardsPresenter::refresh() {
    const AppStore& state = *store();
    const CardsShown shown = cardsShown({
        .jobState = state.jobState(),
        .appMode = state.appMode(),
        .hasTargets = !state.selectedSpeciesList().empty(),
        .hasPausedRun = state.pausedRun().has_value(),
        .hasProgress = state.progress().has_value(),
        .hasPrediction = state.latestPrediction() || !state.identificationNotice().isEmpty(),
        .hasSortResult = state.sortResult().has_value(),
        .hasFindResult = state.findResult().has_value(),
    });
    if (shown == shown_) return;
    shown_ = shown;
    Q_EMIT changed();
}

}  // namespace ornivo::app
