#include "app/presentation/FooterPresenter.h"

#include "app/presentation/ScreenTexts.h"

namespace ornivo::app {

void FooterPresenter::follow(AppStore& store) {
    for (const auto changed :
         {&AppStore::jobStateChanged, &AppStore::appModeChanged, &AppStore::progressChanged,
          &AppStore::sortResultChanged, &AppStore::findResultChanged, &AppStore::sourceChanged,
          &AppStore::sinkChanged, &AppStore::selectedSpeciesListChanged, &AppStore::scanChanged}) {
        connect(&store, changed, this, &FooterPresenter::refresh);
    }
    refresh();
}

FooterState FooterPresenter::state() const {
    const AppStore& state = *store();
    const auto& progress = state.progress();
    const auto& scan = state.scan();
    return {
        .jobState = state.jobState(),
        .appMode = state.appMode(),
        .percent = progress ? percentage(progress->current, progress->total) : 0,
        .hasResult = state.sortResult() || state.findResult(),
        .hasSource = state.source().has_value(),
        .hasSink = state.sink().has_value(),
        .hasTargets = !state.selectedSpeciesList().empty(),
        .unrecognised = state.unrecognisedTargets(),
        .found = scan ? std::optional(scan->total) : std::nullopt,
    };
}

void FooterPresenter::refresh() {
    const QString status = footerStatus(state());
    const QString label =
        primaryLabel(store()->jobState(), store()->appMode(), store()->ctaLabel());
    if (status == status_ && label == label_) return;
    status_ = status;
    label_ = label;
    Q_EMIT changed();
}

}  // namespace ornivo::app
