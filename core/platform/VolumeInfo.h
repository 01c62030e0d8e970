#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace ornivo {

/// A file system that is mounted, as one of its folders shows it.
struct VolumeInfo {
    /// Equal for any two folders of one file system, and for those alone: across the subvolumes of
    /// a btrfs and wherever the file system is mounted a second time.
    std::string identity;
    /// The name of the folder that it is mounted on; absent for the root of all folders.
    std::optional<std::string> name;
    /// Bytes that an ordinary user can still write; 0 where the file system tells no sizes.
    std::int64_t availableBytes = 0;
    /// Whether a copy within the file system can share its data blocks with the original, by its
    /// kind: a btrfs and an XFS made with reflinks are able to, all others count as unable.
    /// `clonesWhenAsked` knows better wherever it can be tried.
    bool supportsCloning = false;

    bool operator==(const VolumeInfo&) const = default;
};

/// The volume that a file or folder lies on; absent when it isn't there or can't be looked at.
std::optional<VolumeInfo> volumeOf(const std::filesystem::path& path);

}  // namespace ornivo
