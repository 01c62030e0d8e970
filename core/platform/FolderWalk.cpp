#include "platform/FolderWalk.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/Error.h"
#include "platform/FolderListing.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// A folder that the walk is in.
struct Level {
    fs::path folder;
    std::vector<FolderListing::Entry> entries;
    std::size_t next = 0;
};

std::vector<FolderListing::Entry> entriesOrNone(const fs::path& folder) {
    try {
        return FolderListing::entries(folder);
    } catch (const Error&) {
        return {};
    }
}

}  // namespace

void walkFolder(const fs::path& folder, const std::function<Descent(const FolderEntry&)>& visit) {
    // A list of levels and no recursion, so that the stack sets no limit to the depth.
    std::vector<Level> levels;
    levels.push_back({folder, entriesOrNone(folder)});
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.entries.size()) {
            levels.pop_back();
            continue;
        }
        const auto& [name, isDirectory, isRegularFile, bytes] = level.entries[level.next++];
        const FolderEntry entry{level.folder / name, isDirectory, isRegularFile, bytes};
        const bool enters = visit(entry) == Descent::enter && entry.isDirectory;
        if (enters) levels.push_back({entry.path, entriesOrNone(entry.path)});
    }
}

}  // namespace ornivo
