#pragma once

#include <filesystem>
#include <string>

#include "vocabulary/SortOptions.h"

namespace ornivo::cli {

/// What the user asked of `sort`.
struct SortRequest {
    std::filesystem::path source;
    std::filesystem::path destination;
    SortOptions options;
    /// How the place named was understood; empty if none was.
    std::string placeNote;
    /// Only say what would be done.
    bool dryRun = false;
    /// One JSON object a line instead of words.
    bool json = false;
    /// Ask no question.
    bool yes = false;

    bool operator==(const SortRequest&) const = default;
};

}  // namespace ornivo::cli
