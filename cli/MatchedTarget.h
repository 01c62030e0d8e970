#pragma once

#include <optional>

#include "cli/RunScope.h"
#include "engine/SortEngine.h"

namespace ornivo::cli {

/// The species searched for that a shot is filed under; absent where it stays where it is.
std::optional<BirdSpecies> matchedTarget(const RunScope& scope,
                                         const SortEngine::Prediction& prediction);

}  // namespace ornivo::cli
