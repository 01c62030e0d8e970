#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>

namespace ornivo {

/// What tells a file from a changed one.
struct FileStamp {
    std::uintmax_t length;
    std::filesystem::file_time_type modified;

    bool operator==(const FileStamp&) const = default;
};

/// Absent when no ordinary file is there.
std::optional<FileStamp> stampOf(const std::filesystem::path& file);

/// Every ordinary file in a folder and below it, by standardised path.
using FolderSnapshot = std::map<std::filesystem::path, FileStamp>;

/// A folder that can't be read has none.
FolderSnapshot snapshotOf(const std::filesystem::path& folder);

}  // namespace ornivo
