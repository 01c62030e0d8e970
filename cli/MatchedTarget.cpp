#include "cli/MatchedTarget.h"

#include <algorithm>

namespace ornivo::cli {

std::optional<BirdSpecies> matchedTarget(const RunScope& scope,
                                         const SortEngine::Prediction& prediction) {
    // A notice beside a species says that it was under the gate.
    if (!prediction.species || prediction.notice) return std::nullopt;
    const auto target = std::ranges::find_if(scope.targets, [&](const BirdSpecies& each) {
        return SortEngine::matches(*prediction.species, each);
    });
    return target == scope.targets.end() ? std::nullopt : std::optional(*target);
}

}  // namespace ornivo::cli
