#pragma once

#include <filesystem>

/// Ways to rename a file that never replace another. Each answers 0, or the errno of what failed;
/// after a failure the file has its old name still.
namespace ornivo::ExclusiveRename {

/// The first of the ways below that the file system knows.
int rename(const std::filesystem::path& from, const std::filesystem::path& to);

/// In one step, by the system's own flag. EINVAL or ENOSYS where it is not known.
int byFlag(const std::filesystem::path& from, const std::filesystem::path& to);

/// By a second name for the file, which then loses the first. EPERM, ENOTSUP or ENOSYS where a
/// file has one name only, as on FAT.
int byLink(const std::filesystem::path& from, const std::filesystem::path& to);

/// By an empty file that claims the name and is then replaced. For a moment the name shows that
/// empty file.
int byClaim(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace ornivo::ExclusiveRename
