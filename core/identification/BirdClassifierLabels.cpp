#include "identification/BirdClassifierLabels.h"

#include <algorithm>

#include "identification/SpeciesLookup.h"
#include "platform/Resources.h"

namespace ornivo {
namespace BirdClassifierLabels {
namespace {

const SpeciesLookup& bundled() {
    static const SpeciesLookup lookup = [] {
        const auto file = Resources::find("bird_common_names", "json");
        return SpeciesLookup(file ? readCommonNames(*file) : CommonNames());
    }();
    return lookup;
}

}  // namespace

const CommonNames& commonNames() {
    return bundled().commonNames();
}

int speciesCount() {
    return static_cast<int>(commonNames().size());
}

std::string displayName(const std::string& rawLabel) {
    return bundled().displayName(rawLabel);
}

std::string confidenceLabel(double confidence, double gate) {
    const double high = std::min(gate + 0.2, 0.95);
    if (confidence >= high) return "High";
    return confidence >= gate ? "Good" : "Low";
}

std::optional<std::string> canonicalCommonName(std::string_view typed) {
    return bundled().canonicalCommonName(typed);
}

std::optional<SpeciesMatch> species(std::string_view typed) {
    return bundled().species(typed);
}

std::vector<SpeciesMatch> search(std::string_view query, int limit) {
    return bundled().search(query, limit);
}

}  // namespace BirdClassifierLabels

std::string displayName(const IdentifiedSpecies& species) {
    return BirdClassifierLabels::displayName(species.topLabel());
}

}  // namespace ornivo
