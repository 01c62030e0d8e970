#include "app/presentation/PausedRunPresenter.h"

namespace ornivo::app {

void PausedRunPresenter::follow(AppStore& store) {
    connect(&store, &AppStore::pausedRunChanged, this, &PausedRunPresenter::refresh);
    connect(&store, &AppStore::optionsChanged, this, &PausedRunPresenter::refresh);
    refresh();
}

void PausedRunPresenter::refresh() {
    const auto& run = store()->pausedRun();
    // The card is on its way out; its words stand until it has gone.
    if (!run) return;
    const PausedRunText text = pausedRunText(*run, store()->gate(), store()->options());
    if (text == text_) return;
    text_ = text;
    Q_EMIT changed();
}

}  // namespace ornivo::app
