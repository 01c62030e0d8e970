#include "media/LyingShot.h"

#include "platform/Collision.h"
#include "platform/Error.h"
#include "platform/Paths.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// Answers where the file lies now.
fs::path moveToFreeName(const fs::path& file, const fs::path& wanted, Files& files) {
    const fs::path free = resolveCollision(wanted, files);
    files.move(file, free);
    return free;
}

void moveCompanions(const LyingShot::File& photo, const fs::path& placed, Files& files) {
    for (const Sidecars::Companion& companion : photo.companions) {
        const std::string newName = companion.destinationName(lastPathComponent(placed));
        try {
            moveToFreeName(companion.url, placed.parent_path() / newName, files);
        } catch (const Error&) {
            // The photograph has arrived.
        }
    }
}

void moveSibling(const LyingShot::File& sibling, const fs::path& folder, const fs::path& target,
                 Files& files) {
    try {
        const fs::path placed = moveToFreeName(folder / sibling.name, target / sibling.name, files);
        moveCompanions(sibling, placed, files);
    } catch (const Error&) {
        // The leading file has arrived.
    }
}

}  // namespace

fs::path LyingShot::moveTo(const fs::path& target, Files& files) const {
    const fs::path placed = moveToFreeName(folder / leader.name, target / leader.name, files);
    for (const File& sibling : siblings) moveSibling(sibling, folder, target, files);
    moveCompanions(leader, placed, files);
    return placed;
}

}  // namespace ornivo
