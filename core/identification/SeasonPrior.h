#pragma once

#include <map>
#include <string>
#include <unordered_set>

#include "identification/SpeciesPrior.h"

namespace ornivo {

/// Knows which species are present in each month of the year.
class SeasonPrior final : public SpeciesPrior {
public:
    /// Month 1 to 12 to the raw labels of the species present in it. A month that is missing or
    /// has no species says nothing.
    using LabelsByMonth = std::map<int, std::unordered_set<std::string>>;

    using SpeciesPrior::adjusted;

    /// `offSeasonWeight`, clamped to 0..1, is the factor for species that are absent; 1 switches
    /// the prior off.
    SeasonPrior(LabelsByMonth labelsByMonth, double offSeasonWeight);

    bool usesLocation() const override { return false; }
    bool usesDate() const override { return true; }

    /// What this prior multiplies a species' share by, before all shares are renormalised.
    double factor(const std::string& label, const IdentificationContext& context) const;

    Candidates adjusted(Candidates candidates, const IdentificationContext& context) const override;

private:
    using Labels = LabelsByMonth::mapped_type;

    /// The species present when a photograph was taken; null when the prior leaves it alone.
    const Labels* presentFor(const IdentificationContext& context) const;

    LabelsByMonth labelsByMonth_;
    double offSeasonWeight_;
};

}  // namespace ornivo
