#include "identification/RangeTable.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "identification/BirdClassifierLabels.h"
#include "identification/NoSpeciesPrior.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "vocabulary/JsonFields.h"

namespace ornivo {
namespace {

using Range = RangeListPrior::Range;
using LoadError = RangeTable::LoadError;

/// A region as the file has it, of the right types but not yet checked.
struct WireRegion {
    RangeTable::RegionInfo info;
    std::vector<double> latitudes;
    std::vector<double> longitudes;
    std::vector<std::string> labels;
};

WireRegion decodedRegion(const JsonFields& fields) {
    using Texts = std::vector<std::string>;
    WireRegion region;
    region.info.id = fields.required<std::string>("id");
    region.info.name = fields.required<std::string>("name");
    region.info.countries = fields.optional<Texts>("countries").value_or(Texts());
    region.latitudes = fields.required<std::vector<double>>("latitudes");
    region.longitudes = fields.required<std::vector<double>>("longitudes");
    region.info.refines = fields.optional<std::string>("refines");
    region.labels = fields.required<Texts>("labels");
    return region;
}

/// The bounds, if they are two numbers in their order within ±limit degrees.
std::optional<Range> validBounds(const std::vector<double>& numbers, double limit) {
    if (numbers.size() != 2) return std::nullopt;
    const bool isValid = -limit <= numbers[0] && numbers[0] <= numbers[1] && numbers[1] <= limit;
    return isValid ? std::optional(Range{numbers[0], numbers[1]}) : std::nullopt;
}

/// The checked region. The tests stand in the order in which their failures count.
RangeTable::RegionInfo checked(WireRegion region, const std::set<std::string>& idsSoFar) {
    const std::string name = "region '" + region.info.id + "'";
    const auto latitudes = validBounds(region.latitudes, 90);
    const auto longitudes = validBounds(region.longitudes, 180);
    if (!latitudes || !longitudes) throw LoadError::malformed(name + " has invalid bounds");
    if (region.labels.empty()) throw LoadError::malformed(name + " has no labels");
    if (idsSoFar.contains(region.info.id)) {
        throw LoadError::malformed("duplicate region id '" + region.info.id + "'");
    }
    region.info.latitudes = *latitudes;
    region.info.longitudes = *longitudes;
    return std::move(region.info);
}

}  // namespace

LoadError LoadError::malformed(const std::string& details) {
    return {"RangeTable.LoadError", 1, "range_regions.json is malformed. " + details};
}

LoadError LoadError::notBundled() {
    return {"RangeTable.LoadError", 2, "range_regions.json was not found in the package bundle."};
}

std::optional<PhotoLocation> RangeTable::RegionInfo::representativePoint() const {
    return PhotoLocation::make((latitudes.min + latitudes.max) * 0.5,
                               (longitudes.min + longitudes.max) * 0.5);
}

RangeTable RangeTable::fromJson(std::string_view bytes) try {
    const auto json = parsedJson(bytes);
    const JsonFields fields(json);
    RangeTable table;
    table.version_ = fields.required<int>("version");
    table.source_ = fields.optional<std::string>("source").value_or("");
    std::vector<WireRegion> regions;
    std::ranges::transform(fields.objects("regions"), std::back_inserter(regions), decodedRegion);

    if (regions.empty()) throw LoadError::malformed("no regions");
    std::set<std::string> ids;
    for (WireRegion& region : regions) {
        Labels labels(std::make_move_iterator(region.labels.begin()),
                      std::make_move_iterator(region.labels.end()));
        table.regions_.push_back(checked(std::move(region), ids));
        const std::string& id = table.regions_.back().id;
        ids.insert(id);
        table.labelsByRegion_[id] = std::move(labels);
    }
    return table;
} catch (const DecodingError& error) {
    throw LoadError::malformed(error.localizedDescription());
}

RangeTable RangeTable::fromFile(const std::filesystem::path& file) {
    return fromJson(Files::system()->read(file));
}

RangeTable RangeTable::loadBundled() {
    const auto file = Resources::find("range_regions", "json");
    if (!file) throw LoadError::notBundled();
    return fromFile(*file);
}

std::optional<RangeTable> RangeTable::bundled() {
    try {
        return loadBundled();
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::shared_ptr<const SpeciesPrior> RangeTable::bundledPrior(
    double offRangeWeight, const std::optional<std::string>& restrictedTo) {
    auto table = bundled();
    if (!table) return std::make_shared<NoSpeciesPrior>();
    return std::move(*table).prior(offRangeWeight, restrictedTo);
}

std::optional<RangeTable::RegionInfo> RangeTable::region(const std::string& id) const {
    const auto found = std::ranges::find(regions_, id, &RegionInfo::id);
    return found != regions_.end() ? std::optional(*found) : std::nullopt;
}

const RangeTable::Labels& RangeTable::labels(const std::string& regionID) const {
    static const Labels none;
    const auto found = labelsByRegion_.find(regionID);
    return found != labelsByRegion_.end() ? found->second : none;
}

std::vector<std::string> RangeTable::labelsUnknownToModel() const {
    std::set<std::string> unknown;
    for (const auto& [id, labels] : labelsByRegion_) {
        for (const std::string& label : labels) {
            if (!BirdClassifierLabels::commonNames().contains(label)) unknown.insert(label);
        }
    }
    return {unknown.begin(), unknown.end()};
}

std::shared_ptr<const RangeListPrior> RangeTable::prior(
    double offRangeWeight, const std::optional<std::string>& restrictedTo) const& {
    return RangeTable(*this).prior(offRangeWeight, restrictedTo);
}

std::shared_ptr<const RangeListPrior> RangeTable::prior(
    double offRangeWeight, const std::optional<std::string>& restrictedTo) && {
    std::vector<RangeListPrior::Region> boxes;
    for (const RegionInfo& info : regions_) {
        if (restrictedTo && info.id != *restrictedTo) continue;
        boxes.push_back(
            {info.name, info.latitudes, info.longitudes, std::move(labelsByRegion_[info.id])});
    }
    return std::make_shared<RangeListPrior>(std::move(boxes), offRangeWeight);
}

}  // namespace ornivo
