#include "app/presentation/PreviewPresenter.h"

#include "app/presentation/Variants.h"

namespace ornivo::app {

void PreviewPresenter::follow(AppStore& store) {
    for (const auto changed : {&AppStore::sinkChanged, &AppStore::appModeChanged,
                               &AppStore::optionsChanged, &AppStore::selectedSpeciesListChanged}) {
        connect(&store, changed, this, &PreviewPresenter::refresh);
    }
    refresh();
}

std::vector<PreviewLine> PreviewPresenter::preview() const {
    if (store()->appMode() == AppMode::sort) return sortPreview(store()->dateSubfolders());
    const auto& targets = store()->selectedSpeciesList();
    if (targets.empty()) return {};
    return findPreview(targets.front(), store()->dateSubfolders());
}

void PreviewPresenter::refresh() {
    heading_ = previewHeading(store()->sink());
    lines_ = variants(preview());
    Q_EMIT changed();
}

}  // namespace ornivo::app
