#include "platform/FolderListing.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/FileErrors.h"
#include "platform/Text.h"

namespace ornivo::FolderListing {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view listed = "listed";

struct Close {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, Close>;

OpenFolder openFolder(const fs::path& folder) {
    OpenFolder opened(::opendir(folder.c_str()));
    if (!opened) throw folderError(folder, listed, errno);
    return opened;
}

/// Calls `visit` with each name in the file system's order.
template <typename Visit>
void forEachName(const fs::path& folder, DIR* opened, Visit visit) {
    for (;;) {
        errno = 0;
        const dirent* const entry = ::readdir(opened);
        if (!entry && errno != 0) throw folderError(folder, listed, errno);
        if (!entry) return;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") visit(name);
    }
}

/// Absent when the entry cannot be asked, as when it has gone meanwhile.
std::optional<Entry> described(DIR* opened, std::string name) {
    /// What `stat` counts in, whatever the file system's own blocks are.
    constexpr std::int64_t blockBytes = 512;
    struct stat status {};
    if (::fstatat(::dirfd(opened), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return std::nullopt;
    }
    return Entry{std::move(name), S_ISDIR(status.st_mode), S_ISREG(status.st_mode),
                 status.st_blocks * blockBytes};
}

bool isBefore(std::string_view a, std::string_view b) {
    if (plainTextLess(a, b)) return true;
    return !plainTextLess(b, a) && a < b;
}

}  // namespace

std::vector<std::string> names(const fs::path& folder) {
    std::vector<std::string> result;
    const OpenFolder opened = openFolder(folder);
    forEachName(folder, opened.get(), [&](std::string_view name) { result.emplace_back(name); });
    std::ranges::sort(result, isBefore);
    return result;
}

std::vector<Entry> entries(const fs::path& folder) {
    std::vector<Entry> result;
    const OpenFolder opened = openFolder(folder);
    forEachName(folder, opened.get(), [&](std::string_view name) {
        if (auto entry = described(opened.get(), std::string(name))) {
            result.push_back(std::move(*entry));
        }
    });
    std::ranges::sort(result, isBefore, &Entry::name);
    return result;
}

}  // namespace ornivo::FolderListing
