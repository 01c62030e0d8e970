#pragma once

#include <filesystem>

#include "cli/RunScope.h"
#include "engine/PausedRun.h"
#include "vocabulary/SortOptions.h"

namespace ornivo::cli {

/// A run to go on with, made from its record alone.
struct ResumedRun {
    RunScope scope;
    SortOptions options;
};

/// The run that a record found in a destination tells of, over the very list of files that it had,
/// with the very settings. A record doesn't hold the species of a search: they are its `targets`.
/// Raises `UsageError` for targets that are missing or not asked for, and `std::runtime_error` for
/// a record that makes no sense or of whose files none is there.
ResumedRun resumedRun(const PausedRun& record, const std::filesystem::path& destination,
                      const std::vector<BirdSpecies>& targets);

}  // namespace ornivo::cli
