#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "identification/RangeTable.h"
#include "identification/SeasonPrior.h"

namespace ornivo {

/// The species that may be seen in each calendar month: the ground of the season prior.
class SeasonTable {
public:
    using Labels = std::unordered_set<std::string>;

    /// The factors on which the whole program runs.
    static constexpr double offRangeWeight = 0.15;
    static constexpr double offSeasonWeight = 0.35;

    /// Reads a table from JSON: an object whose member `months` maps month numbers to lists of
    /// labels. Keys that are no month are passed over; absent unless all twelve months are there,
    /// since a partial calendar is a broken file.
    static std::optional<SeasonTable> fromJson(std::string_view json);

    /// The table that ships with the program, read anew on each call; absent if it cannot be read.
    static std::optional<SeasonTable> bundled();

    /// The prior of range and season together, as far as the tables are there. With a region's id,
    /// only that region counts for the range.
    static std::shared_ptr<const SpeciesPrior> combinedPrior(
        std::optional<RangeTable> ranges, std::optional<SeasonTable> seasons,
        const std::optional<std::string>& restrictedTo);

    /// The prior the whole program runs on: that of the bundled tables.
    static std::shared_ptr<const SpeciesPrior> bundledCombinedPrior(
        const std::optional<std::string>& restrictedTo = std::nullopt);

    int version() const { return version_; }
    const std::string& source() const { return source_; }
    const std::map<int, Labels>& labelsByMonth() const { return labelsByMonth_; }

    /// None for a number that is no month.
    const Labels& labels(int month) const;

    std::shared_ptr<const SeasonPrior> prior(double weight) const&;
    /// The same, where the table is not needed any longer: its labels are not copied.
    std::shared_ptr<const SeasonPrior> prior(double weight) &&;

private:
    SeasonTable() = default;

    int version_ = 1;
    std::string source_;
    std::map<int, Labels> labelsByMonth_;
};

}  // namespace ornivo
