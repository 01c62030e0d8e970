#pragma once

#include <vector>

#include "cli/Console.h"
#include "vocabulary/BirdSpecies.h"

namespace ornivo::cli {

/// Notes how the species of a search were understood, and warns of those that will find nothing.
void tellTargets(const std::vector<BirdSpecies>& targets, Console& console);

}  // namespace ornivo::cli
