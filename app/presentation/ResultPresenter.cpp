#include "app/presentation/ResultPresenter.h"

#include "app/presentation/Variants.h"

namespace ornivo::app {

void ResultPresenter::follow(AppStore& store) {
    for (const auto changed :
         {&AppStore::sortResultChanged, &AppStore::findResultChanged, &AppStore::sinkChanged}) {
        connect(&store, changed, this, &ResultPresenter::refresh);
    }
    refresh();
}

ResultText ResultPresenter::text() const {
    const AppStore& state = *store();
    if (state.sortResult()) return resultText(*state.sortResult(), state.sink());
    if (state.findResult()) return resultText(*state.findResult(), state.sink());
    return {};
}

void ResultPresenter::refresh() {
    const ResultText words = text();
    outcome_ = variants(words.outcome);
    warnings_ = variants(words.warnings);
    ending_ = variants(words.ending);
    Q_EMIT changed();
}

}  // namespace ornivo::app
