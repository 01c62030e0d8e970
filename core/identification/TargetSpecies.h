#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vocabulary/BirdSpecies.h"

/// The species of a search, from what a person typed to what can be found.
namespace ornivo::TargetSpecies {

/// The common and the scientific name in what was typed: "Osprey (Pandion haliaetus)", or the two
/// with "|", " - ", " -- " or ";" between them. Anything else is a common name alone.
BirdSpecies parse(std::string_view typed);

/// A bird that the classifier knows by either name with both of its names as its table spells
/// them; any other as it is.
BirdSpecies resolved(const BirdSpecies& species);

/// Whether the classifier knows it by either of its names.
bool isKnown(const BirdSpecies& species);

/// What the user must know of species that the classifier doesn't have among its `count`; empty
/// when there are none.
std::string unrecognisedMessage(const std::vector<BirdSpecies>& unrecognised, int count);

}  // namespace ornivo::TargetSpecies
