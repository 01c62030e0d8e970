#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// What one folder holds, in plain text order; names that are the same text in that order follow
/// their bytes. The order of the file system is another on each disk.
namespace ornivo::FolderListing {

/// A link is neither file nor folder, wherever it leads.
struct Entry {
    std::string name;
    bool isDirectory = false;
    bool isRegularFile = false;
    /// Bytes it takes up on its volume.
    std::int64_t allocatedBytes = 0;
};

/// All names, hidden ones included. Raises `Error`.
std::vector<std::string> names(const std::filesystem::path& folder);

/// All entries but those that cannot be asked. Raises `Error`.
std::vector<Entry> entries(const std::filesystem::path& folder);

}  // namespace ornivo::FolderListing
