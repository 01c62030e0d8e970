#pragma once

#include <optional>
#include <string>

#include "cli/Tone.h"
#include "vocabulary/IdentifiedSpecies.h"

namespace ornivo::cli {

/// What became of one shot of a Sort run.
struct Shot {
    std::string fileName;
    /// The best answer, where the shot could be classified.
    std::optional<IdentifiedSpecies> species;
    /// Whether the answer was sure enough for a species folder.
    bool called = false;
    /// Why the shot wasn't filed.
    std::optional<std::string> failure;

    bool operator==(const Shot&) const = default;
};

/// A shot in one line of words, such as "IMG_1.jpg: Hoopoe 93% → Hoopoe/".
std::string shotLine(const Shot& shot);

/// Accent for a called shot, error for one that failed.
Tone toneOf(const Shot& shot);

}  // namespace ornivo::cli
