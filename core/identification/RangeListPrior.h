#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "identification/SpeciesPrior.h"

namespace ornivo {

/// Knows which species occur in rectangular regions of the world. A place outside every region
/// proves nothing; one inside several has the species of them all.
class RangeListPrior final : public SpeciesPrior {
public:
    /// Both ends belong to it. Degrees.
    struct Range {
        double min;
        double max;

        bool contains(double value) const { return min <= value && value <= max; }
        bool operator==(const Range&) const = default;
    };

    /// A box of latitudes and longitudes, which does not cross the antimeridian, with the raw
    /// labels of the species in it.
    struct Region {
        std::string name;
        Range latitudes;
        Range longitudes;
        std::unordered_set<std::string> labels;

        bool contains(const PhotoLocation& location) const {
            return latitudes.contains(location.latitude()) &&
                   longitudes.contains(location.longitude());
        }
        bool operator==(const Region&) const = default;
    };

    using SpeciesPrior::adjusted;

    /// `offRangeWeight`, clamped to 0..1, is the factor for species that do not occur there; 1
    /// switches the prior off.
    RangeListPrior(std::vector<Region> regions, double offRangeWeight);

    bool usesLocation() const override { return true; }

    /// What this prior multiplies a species' share by, before all shares are renormalised.
    double factor(const std::string& label, const IdentificationContext& context) const;

    Candidates adjusted(Candidates candidates, const IdentificationContext& context) const override;

private:
    using Labels = std::unordered_set<std::string>;

    /// The species lists that count for a photograph; none when the prior leaves it alone.
    std::vector<const Labels*> listsFor(const IdentificationContext& context) const;

    std::vector<Region> regions_;
    double offRangeWeight_;
};

}  // namespace ornivo
