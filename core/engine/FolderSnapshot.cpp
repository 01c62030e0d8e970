#include "engine/FolderSnapshot.h"

#include <system_error>

#include "platform/Paths.h"

namespace ornivo {

namespace fs = std::filesystem;

std::optional<FileStamp> stampOf(const fs::path& file) {
    std::error_code failure;
    if (fs::symlink_status(file, failure).type() != fs::file_type::regular) return std::nullopt;
    std::error_code noLength;
    std::error_code noTime;
    const FileStamp stamp{fs::file_size(file, noLength), fs::last_write_time(file, noTime)};
    return noLength || noTime ? std::nullopt : std::optional(stamp);
}

FolderSnapshot snapshotOf(const fs::path& folder) {
    FolderSnapshot snapshot;
    std::error_code failure;
    fs::recursive_directory_iterator walk(standardized(folder),
                                          fs::directory_options::skip_permission_denied, failure);
    while (!failure && walk != fs::recursive_directory_iterator()) {
        if (const auto stamp = stampOf(walk->path())) snapshot.emplace(walk->path(), *stamp);
        walk.increment(failure);
    }
    return snapshot;
}

}  // namespace ornivo
