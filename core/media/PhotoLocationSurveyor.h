#pragma once

#include <filesystem>
#include <span>

#include "media/PhotoLocationSurvey.h"

/// Finds out before a run whether photographs tell where they were taken.
namespace ornivo::PhotoLocationSurveyor {

inline constexpr int defaultSampleLimit = 60;

/// Looks at the headers of at most `limit` files, spread evenly from the first on. A file that
/// can't be read counts as one without a position. Takes its time: not for the thread of a screen.
PhotoLocationSurvey survey(std::span<const std::filesystem::path> files,
                           int limit = defaultSampleLimit);

}  // namespace ornivo::PhotoLocationSurveyor
