#include "cli/TargetSpecies.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "cli/UsageError.h"
#include "identification/BirdClassifierLabels.h"
#include "identification/TargetSpecies.h"

namespace ornivo::cli {

std::vector<BirdSpecies> targetSpecies(const std::vector<std::string>& typed) {
    std::vector<BirdSpecies> targets;
    for (const std::string& text : typed) {
        const BirdSpecies species = TargetSpecies::parse(text);
        if (species.displayName().empty()) {
            throw UsageError("\"" + text + "\" is no name of a bird.");
        }
        const BirdSpecies target = TargetSpecies::resolved(species);
        if (std::ranges::find(targets, target.id(), &BirdSpecies::id) == targets.end()) {
            targets.push_back(target);
        }
    }
    return targets;
}

std::string namesOf(const BirdSpecies& species) {
    if (species.commonName.empty() || species.scientificName.empty()) return species.displayName();
    return species.commonName + " (" + species.scientificName + ")";
}

std::string unrecognisedMessage(const std::vector<BirdSpecies>& targets) {
    std::vector<BirdSpecies> unknown;
    std::ranges::copy_if(targets, std::back_inserter(unknown), std::not_fn(TargetSpecies::isKnown));
    return TargetSpecies::unrecognisedMessage(unknown, BirdClassifierLabels::speciesCount());
}

}  // namespace ornivo::cli
