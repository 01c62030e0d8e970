#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <vector>

#include "vocabulary/AppMode.h"
#include "vocabulary/BirdSpecies.h"

namespace ornivo::cli {

/// What a run is about, for those who tell of it.
struct RunScope {
    /// What a run that stopped had done before it goes on.
    struct EarlierPart {
        /// Files dealt with: the run goes on with the one of this index.
        std::size_t files = 0;
        /// Shots filed under a species.
        int sorted = 0;
        /// Shots in `_Uncertain`.
        int uncertain = 0;

        bool operator==(const EarlierPart&) const = default;
    };

    /// Empty for a run that goes on: its record tells of files alone.
    std::filesystem::path source;
    std::filesystem::path destination;
    /// The files, in the order in which the run takes them.
    std::vector<std::filesystem::path> files;
    /// Photographs and clips of the source that the run leaves out, since they lie in the
    /// destination.
    std::size_t leftOut = 0;
    AppMode mode = AppMode::sort;
    /// In Find mode the species searched for, in the user's order.
    std::vector<BirdSpecies> targets = {};
    /// Absent for a new run.
    std::optional<EarlierPart> earlier = std::nullopt;

    /// Index of the file with which the run begins.
    std::size_t startIndex() const { return earlier ? earlier->files : 0; }
};

}  // namespace ornivo::cli
