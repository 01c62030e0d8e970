#pragma once

#include <string>
#include <vector>

#include "vocabulary/BirdSpecies.h"

/// The species of a search, as people type them.
namespace ornivo::cli {

/// The species that are meant, each once, in the order typed. Both names of one may be given, as
/// in "Hoopoe (Upupa epops)", "Hoopoe - Upupa epops" or with "|" between. A known bird gets both of
/// its names as the table spells them; any other stays as typed. Raises `UsageError` for a text
/// without a name.
std::vector<BirdSpecies> targetSpecies(const std::vector<std::string>& typed);

/// The species with both of its names, as far as it has them: "Hoopoe (Upupa epops)".
std::string namesOf(const BirdSpecies& species);

/// What to say of the targets that can't be recognised; empty when all can.
std::string unrecognisedMessage(const std::vector<BirdSpecies>& targets);

}  // namespace ornivo::cli
