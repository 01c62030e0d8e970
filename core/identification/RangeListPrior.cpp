#include "identification/RangeListPrior.h"

#include <algorithm>
#include <utility>

#include "identification/CandidateWeights.h"

namespace ornivo {
namespace {

bool isInOneOf(const std::vector<const std::unordered_set<std::string>*>& lists,
               const std::string& label) {
    return std::ranges::any_of(lists, [&](const auto* list) { return list->contains(label); });
}

}  // namespace

RangeListPrior::RangeListPrior(std::vector<Region> regions, double offRangeWeight)
    : regions_(std::move(regions)), offRangeWeight_(std::clamp(offRangeWeight, 0.0, 1.0)) {}

std::vector<const RangeListPrior::Labels*> RangeListPrior::listsFor(
    const IdentificationContext& context) const {
    std::vector<const Labels*> lists;
    if (!(offRangeWeight_ < 1.0) || !context.location) return lists;
    for (const Region& region : regions_) {
        if (region.contains(*context.location) && !region.labels.empty()) {
            lists.push_back(&region.labels);
        }
    }
    return lists;
}

double RangeListPrior::factor(const std::string& label,
                              const IdentificationContext& context) const {
    const auto lists = listsFor(context);
    return lists.empty() || isInOneOf(lists, label) ? 1.0 : offRangeWeight_;
}

SpeciesPrior::Candidates RangeListPrior::adjusted(Candidates candidates,
                                                  const IdentificationContext& context) const {
    const auto lists = listsFor(context);
    if (lists.empty() || candidates.empty()) return candidates;

    const double sum = weighDown(candidates, offRangeWeight_,
                                 [&](const std::string& label) { return isInOneOf(lists, label); });
    if (sum > 0) renormalise(candidates, sum);
    sortLikeliestFirst(candidates);
    return candidates;
}

}  // namespace ornivo
