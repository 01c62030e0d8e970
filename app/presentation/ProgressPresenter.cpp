#include "app/presentation/ProgressPresenter.h"

namespace ornivo::app {

void ProgressPresenter::follow(AppStore& store) {
    connect(&store, &AppStore::progressChanged, this, &ProgressPresenter::refresh);
    connect(&store, &AppStore::jobStateChanged, this, &ProgressPresenter::refresh);
    connect(&store, &AppStore::appModeChanged, this, &ProgressPresenter::refresh);
    connect(&species_, &TonedLines::countChanged, this, &ProgressPresenter::hasSpeciesChanged);
    refresh();
}

void ProgressPresenter::pauseOrResume() {
    if (store()->jobState() == JobState::paused) {
        store()->resume();
    } else {
        store()->pause();
    }
}

void ProgressPresenter::refresh() {
    const auto& progress = store()->progress();
    if (!progress) return;
    species_.setLines(speciesLines(*progress));
    text_ = progressText(*progress, store()->appMode(), store()->jobState());
    Q_EMIT changed();
}

}  // namespace ornivo::app
