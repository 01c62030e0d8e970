#pragma once

#include <filesystem>
#include <vector>

namespace ornivo {

/// What a scan of the source found.
struct ScanResult {
    /// Files found.
    int total = 0;
    /// The files, in the order in which a run takes them.
    std::vector<std::filesystem::path> paths;

    bool operator==(const ScanResult&) const = default;
};

}  // namespace ornivo
