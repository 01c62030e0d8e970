#include <algorithm>
#include <iterator>

#include "app/AppStore.h"
#include "identification/TargetSpecies.h"

namespace ornivo::app {

void AppStore::setSpeciesQuery(const QString& query) {
    if (query == speciesQuery_) return;
    speciesQuery_ = query;
    Q_EMIT speciesQueryChanged();
}

bool AppStore::selectTypedSpecies() {
    const BirdSpecies typed = TargetSpecies::parse(speciesQuery_.toStdString());
    if (typed.commonName.empty() && typed.scientificName.empty()) return false;
    const BirdSpecies chosen = TargetSpecies::resolved(typed);
    addSpecies(QString::fromStdString(chosen.commonName),
               QString::fromStdString(chosen.scientificName));
    setSpeciesQuery({});
    return true;
}

void AppStore::addSpecies(const QString& commonName, const QString& scientificName) {
    BirdSpecies species{commonName.toStdString(), scientificName.toStdString()};
    const std::string id = species.id();
    const bool isThere = std::any_of(selectedSpeciesList_.begin(), selectedSpeciesList_.end(),
                                     [&](const BirdSpecies& each) { return each.id() == id; });
    if (isThere) return;
    selectedSpeciesList_.push_back(std::move(species));
    Q_EMIT selectedSpeciesListChanged();
}

void AppStore::removeSpecies(const QString& id) {
    const std::string removed = id.toStdString();
    std::erase_if(selectedSpeciesList_,
                  [&](const BirdSpecies& each) { return each.id() == removed; });
    Q_EMIT selectedSpeciesListChanged();
}

std::vector<BirdSpecies> AppStore::unrecognisedTargets() const {
    std::vector<BirdSpecies> unknown;
    std::copy_if(selectedSpeciesList_.begin(), selectedSpeciesList_.end(),
                 std::back_inserter(unknown),
                 [](const BirdSpecies& species) { return !TargetSpecies::isKnown(species); });
    return unknown;
}

}  // namespace ornivo::app
