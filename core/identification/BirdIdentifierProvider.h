#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "identification/SpeciesPrior.h"
#include "vocabulary/BirdIdentifying.h"

namespace ornivo::BirdIdentifierProvider {

/// An identifier with the model at `modelURL`, or else the one that ships with the program. Never
/// fails: where no real one can be made, the answer is an `UnavailableBirdIdentifier` that holds
/// the reason.
std::shared_ptr<BirdIdentifying> make(
    ConfidencePolicy policy, std::shared_ptr<const SpeciesPrior> prior,
    const std::optional<std::filesystem::path>& modelURL = std::nullopt);

/// Whether a model ships with the program. Only looks for it, so this costs next to nothing.
bool isModelBundled();

}  // namespace ornivo::BirdIdentifierProvider
