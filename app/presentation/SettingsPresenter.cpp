#include "app/presentation/SettingsPresenter.h"

#include "identification/BirdClassifierLabels.h"
#include "identification/BirdIdentifierProvider.h"

namespace ornivo::app {

void SettingsPresenter::follow(AppStore& store) {
    for (const auto changed : {&AppStore::sinkChanged, &AppStore::burstInheritanceChanged,
                               &AppStore::assumedRegionIDChanged}) {
        connect(&store, changed, this, &SettingsPresenter::refresh);
    }
    refresh();
}

void SettingsPresenter::refresh() {
    hasSink_ = store()->sink().has_value();
    burst_ = store()->burstInheritance();
    isRegionNamed_ = !store()->assumedRegionID().isEmpty();
    Q_EMIT changed();
}

QString SettingsPresenter::modelNote() const {
    return app::modelNote(BirdIdentifierProvider::isModelBundled());
}

QString SettingsPresenter::regionExplanation() const {
    return app::regionExplanation(isRegionNamed_, BirdClassifierLabels::speciesCount());
}

void SettingsPresenter::chooseBurst(int row) {
    store()->setBursts(static_cast<AppStore::Bursts>(row));
}

}  // namespace ornivo::app
