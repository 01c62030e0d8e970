#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// The two things that GIO does for us with files. Both go the straight way to the system,
/// whatever services the desktop offers.
namespace ornivo::GIOFiles {

struct Failure {
    /// Absent when GIO tells of no system call that failed.
    std::optional<int> errnoValue;
    /// The reason as GIO tells it, without the paths that it puts before.
    std::string words;
};

/// Copies a file with its permissions, modification time and extended attributes; never replaces
/// one. A link is copied as a link. After a failure a part of the copy may be there. Shares the
/// data blocks where the file system can.
std::optional<Failure> copy(const std::filesystem::path& from, const std::filesystem::path& to);

/// Moves a file to the trash of its volume, or to the user's own. Never removes it.
std::optional<Failure> trash(const std::filesystem::path& file);

/// The errno behind a code of the domain G_IO_ERROR and its words.
std::optional<int> errnoBehind(int code, std::string_view words);

}  // namespace ornivo::GIOFiles
