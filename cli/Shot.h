#pragma once

#include <optional>
#include <string>

#include "cli/Tone.h"
#include "vocabulary/IdentifiedSpecies.h"

namespace ornivo::cli {

/// What became of one shot of a run.
struct Shot {
    std::string fileName;
    /// The best answer, where the shot could be classified.
    std::optional<IdentifiedSpecies> species = std::nullopt;
    /// Whether the answer was sure enough for a species folder.
    bool called = false;
    /// The folder that the shot was filed in; absent where it stays where it is.
    std::optional<std::string> folder = std::nullopt;
    /// Why the shot wasn't filed.
    std::optional<std::string> failure = std::nullopt;

    bool operator==(const Shot&) const = default;
};

/// A shot in one line of words, such as "IMG_1.jpg: Hoopoe 93% → Hoopoe/". One that stays has no
/// folder behind it.
std::string shotLine(const Shot& shot);

/// Accent for a called shot that was filed, error for one that failed.
Tone toneOf(const Shot& shot);

}  // namespace ornivo::cli
