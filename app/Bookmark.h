#pragma once

#include <QByteArray>
#include <filesystem>
#include <optional>

/// What is kept of a folder so that it can be opened again after a restart: its path, and what the
/// file system calls the folder itself.
namespace ornivo::app::Bookmark {

/// A folder found again.
struct Resolved {
    std::filesystem::path folder;
    /// Another folder stands at the path than the one remembered, as after a backup was put back
    /// or a disk was plugged in anew: the bookmark is to be remade.
    bool isStale = false;

    bool operator==(const Resolved&) const = default;
};

/// Absent when no folder can be reached at the path.
std::optional<QByteArray> make(const std::filesystem::path& folder);

/// Absent when the folder is gone, or the bytes are no bookmark.
std::optional<Resolved> resolve(const QByteArray& bookmark);

}  // namespace ornivo::app::Bookmark
