#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/RunManner.h"
#include "vocabulary/AppMode.h"
#include "vocabulary/BirdSpecies.h"
#include "vocabulary/SortOptions.h"

namespace ornivo::cli {

/// What the user asked of `sort` or `find`.
struct RunRequest {
    AppMode mode = AppMode::sort;
    std::filesystem::path source;
    std::filesystem::path destination;
    /// In Find mode the species searched for, in the user's order.
    std::vector<BirdSpecies> targets;
    SortOptions options;
    /// How the place named was understood; empty if none was.
    std::string placeNote;
    RunManner manner;

    bool operator==(const RunRequest&) const = default;
};

}  // namespace ornivo::cli
