#include "app/presentation/OptionsPresenter.h"

#include <cmath>

#include "identification/CallLevel.h"

namespace ornivo::app {

void OptionsPresenter::follow(AppStore& store) {
    connect(&store, &AppStore::optionsChanged, this, &OptionsPresenter::refresh);
    connect(&store, &AppStore::appModeChanged, this, &OptionsPresenter::refresh);
    refresh();
}

void OptionsPresenter::refresh() {
    keepsOriginals_ = store()->originals() == AppStore::Originals::Keep;
    showsNaming_ = store()->appMode() == AppMode::sort;
    call_ = callLevelText(store()->gate());
    Q_EMIT changed();
}

void OptionsPresenter::chooseLevel(int row) {
    store()->setConfidence(slider(allCases<CallLevel>().at(static_cast<std::size_t>(row))));
}

void OptionsPresenter::fineTune(double position) {
    store()->setConfidence(static_cast<int>(std::lround(position)));
}

}  // namespace ornivo::app
