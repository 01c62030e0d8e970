#include "identification/SeasonPrior.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "identification/CandidateWeights.h"

namespace ornivo {

SeasonPrior::SeasonPrior(LabelsByMonth labelsByMonth, double offSeasonWeight)
    : labelsByMonth_(std::move(labelsByMonth)),
      offSeasonWeight_(std::clamp(offSeasonWeight, 0.0, 1.0)) {}

const SeasonPrior::Labels* SeasonPrior::presentFor(const IdentificationContext& context) const {
    if (!(offSeasonWeight_ < 1.0) || !context.month) return nullptr;
    const auto present = labelsByMonth_.find(*context.month);
    const bool saysNothing = present == labelsByMonth_.end() || present->second.empty();
    return saysNothing ? nullptr : &present->second;
}

double SeasonPrior::factor(const std::string& label, const IdentificationContext& context) const {
    const Labels* const present = presentFor(context);
    return !present || present->contains(label) ? 1.0 : offSeasonWeight_;
}

SpeciesPrior::Candidates SeasonPrior::adjusted(Candidates candidates,
                                               const IdentificationContext& context) const {
    const Labels* const present = presentFor(context);
    if (!present) return candidates;

    std::vector<double> before;
    before.reserve(candidates.size());
    for (const auto& candidate : candidates) before.push_back(candidate.confidence);
    const double sum = weighDown(candidates, offSeasonWeight_, [&](const std::string& label) {
        return present->contains(label);
    });
    // Unlike a place, a season that leaves nothing over is no reason to touch the list.
    if (!(sum > 0)) {
        for (std::size_t i = 0; i < before.size(); ++i) candidates[i].confidence = before[i];
        return candidates;
    }
    renormalise(candidates, sum);
    sortLikeliestFirst(candidates);
    return candidates;
}

}  // namespace ornivo
