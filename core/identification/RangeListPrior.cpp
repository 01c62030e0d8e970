#include "identification/RangeListPrior.h"

#include <algorithm>
#include <utility>

#include "identification/CandidateWeights.h"

namespace ornivo {

RangeListPrior::RangeListPrior(std::vector<Region> regions, double offRangeWeight)
    : regions_(std::move(regions)), offRangeWeight_(std::clamp(offRangeWeight, 0.0, 1.0)) {}

SpeciesPrior::Candidates RangeListPrior::adjusted(Candidates candidates,
                                                  const IdentificationContext& context) const {
    if (!(offRangeWeight_ < 1.0) || !context.location || candidates.empty()) return candidates;

    std::vector<const std::unordered_set<std::string>*> lists;
    for (const Region& region : regions_) {
        if (region.contains(*context.location) && !region.labels.empty()) {
            lists.push_back(&region.labels);
        }
    }
    if (lists.empty()) return candidates;

    const auto occurs = [&](const std::string& label) {
        return std::ranges::any_of(lists,
                                   [&](const auto* labels) { return labels->contains(label); });
    };
    const double sum = weighDown(candidates, offRangeWeight_, occurs);
    if (sum > 0) renormalise(candidates, sum);
    sortLikeliestFirst(candidates);
    return candidates;
}

}  // namespace ornivo
