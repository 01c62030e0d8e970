#pragma once

#include <optional>

#include "vocabulary/BurstInheritance.h"
#include "vocabulary/CopyMode.h"
#include "vocabulary/PhotoLocation.h"

namespace ornivo {

/// What the user asked of a run.
struct SortOptions {
    CopyMode mode = CopyMode::keep;
    /// Give filed files names of the form CommonName_001.
    bool rename = false;
    /// File into a subfolder named after the capture day.
    bool dateSubfolders = false;
    /// Position of the confidence slider, 0 to 100; the run's gate follows from it.
    int confidence = 0;
    /// Where to assume a shot was taken when it carries no position of its own.
    std::optional<PhotoLocation> assumedLocation;
    BurstInheritance burstInheritance = BurstInheritance::off;

    bool operator==(const SortOptions&) const = default;
};

}  // namespace ornivo
