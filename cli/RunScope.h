#pragma once

#include <filesystem>
#include <vector>

namespace ornivo::cli {

/// What a run is about, for those who tell of it.
struct RunScope {
    std::filesystem::path source;
    std::filesystem::path destination;
    /// The files, in the order in which the run takes them.
    std::vector<std::filesystem::path> files;
    /// Photographs and clips of the source that the run leaves out, since they lie in the
    /// destination.
    std::size_t leftOut = 0;
};

}  // namespace ornivo::cli
