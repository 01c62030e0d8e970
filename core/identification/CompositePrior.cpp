#include "identification/CompositePrior.h"

#include <algorithm>
#include <utility>

namespace ornivo {

CompositePrior::CompositePrior(std::vector<std::shared_ptr<const SpeciesPrior>> priors)
    : priors_(std::move(priors)) {}

bool CompositePrior::usesLocation() const {
    return std::ranges::any_of(priors_, [](const auto& prior) { return prior->usesLocation(); });
}

bool CompositePrior::usesDate() const {
    return std::ranges::any_of(priors_, [](const auto& prior) { return prior->usesDate(); });
}

SpeciesPrior::Candidates CompositePrior::adjusted(Candidates candidates,
                                                  const IdentificationContext& context) const {
    for (const auto& prior : priors_) candidates = prior->adjusted(std::move(candidates), context);
    return candidates;
}

}  // namespace ornivo
