#include "cli/AssumedPlace.h"

#include <optional>

#include "cli/UsageError.h"
#include "identification/PlaceGazetteer.h"
#include "identification/RangeTable.h"
#include "platform/Text.h"

namespace ornivo::cli {

namespace {

/// A region with the name of the place that led to it.
struct Resolved {
    RangeTable::RegionInfo region;
    std::string placeName;
};

std::optional<Resolved> resolved(const std::string& typed) {
    const auto table = RangeTable::bundled();
    if (!table) return std::nullopt;
    if (const auto region = table->region(typed)) return Resolved{*region, region->name};

    const auto gazetteer = PlaceGazetteer::bundled();
    const auto place = gazetteer ? gazetteer->match(typed) : std::nullopt;
    const auto region = place ? table->region(place->regionID) : std::nullopt;
    return region ? std::optional(Resolved{*region, place->name}) : std::nullopt;
}

}  // namespace

AssumedPlace resolveAssumedPlace(std::string_view regionOrPlace) {
    const std::string typed = trimmed(regionOrPlace);
    const auto found = resolved(typed);
    const auto middle = found ? found->region.representativePoint() : std::nullopt;
    if (!middle) {
        throw UsageError("Couldn't place “" + typed + "”. Try a state, country or major city.");
    }
    const std::string& region = found->region.name;
    return {*middle, found->placeName == region ? "Using " + region + "."
                                                : found->placeName + " → " + region + "."};
}

}  // namespace ornivo::cli
