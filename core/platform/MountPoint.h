#pragma once

#include <cstdint>
#include <filesystem>
#include <istream>
#include <optional>

namespace ornivo {

/// The folder on which the file system that holds `path` is mounted there; absent when the system
/// doesn't tell.
std::optional<std::filesystem::path> mountPointOf(const std::filesystem::path& path);

/// The same from the kernel's list of mounts, a line each, for the mount of a number.
std::optional<std::filesystem::path> mountPointIn(std::istream& mounts, std::uint64_t mountNumber);

}  // namespace ornivo
