#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "identification/RangeListPrior.h"
#include "platform/Error.h"
#include "vocabulary/PhotoLocation.h"

namespace ornivo {

/// The named regions of the world with the species that occur in each: the ground of the range
/// prior and of the choice of an assumed region.
class RangeTable {
public:
    using Labels = std::unordered_set<std::string>;

    struct RegionInfo {
        std::string id;
        std::string name;
        /// The countries the region stands for; informative only.
        std::vector<std::string> countries;
        /// Degrees, both ends included.
        RangeListPrior::Range latitudes;
        RangeListPrior::Range longitudes;
        /// The wider region that this one refines; informative only.
        std::optional<std::string> refines;

        /// The centre of the box; absent if it is no place on the Earth.
        std::optional<PhotoLocation> representativePoint() const;

        bool operator==(const RegionInfo&) const = default;
    };

    /// A file of regions is broken or missing. The description is what a maintainer reads.
    class LoadError : public Error {
    public:
        static LoadError malformed(const std::string& details);
        static LoadError notBundled();

    private:
        using Error::Error;
    };

    /// Reads a table from JSON. Raises `LoadError` at the first thing that is wrong.
    static RangeTable fromJson(std::string_view json);

    /// Reads a table from a file. A failed reading raises `Error`, broken contents `LoadError`.
    static RangeTable fromFile(const std::filesystem::path& file);

    /// The table that ships with the program, read anew on each call. Raises as `fromFile`, or
    /// `LoadError` when there is none.
    static RangeTable loadBundled();

    /// The same, absent on any failure.
    static std::optional<RangeTable> bundled();

    /// The prior of the bundled table; without one, a prior that changes nothing.
    static std::shared_ptr<const SpeciesPrior> bundledPrior(
        double offRangeWeight, const std::optional<std::string>& restrictedTo = std::nullopt);

    int version() const { return version_; }
    const std::string& source() const { return source_; }
    /// In the order of the file.
    const std::vector<RegionInfo>& regions() const { return regions_; }

    /// Absent for an unknown id.
    std::optional<RegionInfo> region(const std::string& id) const;

    /// The species of a region; none for an unknown id.
    const Labels& labels(const std::string& regionID) const;

    /// Labels that no species of the classifier has, sorted: slips of the table's authors.
    std::vector<std::string> labelsUnknownToModel() const;

    /// The prior over all regions, or over the one with the given id alone: an unknown id gives a
    /// prior that changes nothing.
    std::shared_ptr<const RangeListPrior> prior(
        double offRangeWeight,
        const std::optional<std::string>& restrictedTo = std::nullopt) const&;
    /// The same, where the table is not needed any longer: its labels are not copied.
    std::shared_ptr<const RangeListPrior> prior(
        double offRangeWeight, const std::optional<std::string>& restrictedTo = std::nullopt) &&;

private:
    RangeTable() = default;

    int version_ = 0;
    std::string source_;
    std::vector<RegionInfo> regions_;
    std::map<std::string, Labels> labelsByRegion_;
};

}  // namespace ornivo
