#include <string>

#include "engine/FolderName.h"
#include "engine/SortEngine.h"
#include "media/LyingShot.h"
#include "media/Shots.h"
#include "platform/Paths.h"
#include "review/PosterFolder.h"

namespace ornivo {

namespace fs = std::filesystem;

bool SortEngine::moveOutOfUncertain(const fs::path& from, const fs::path& baseDest,
                                    const std::string& folder) {
    if (!files_->exists(from)) return false;
    const fs::path target = baseDest / folderName(folder);
    files_->createDirectories(target);

    const LyingShot shot = shotLyingAt(from);
    shot.moveTo(target, *files_);
    PosterFolder(shot.folder, *files_).remove(shot);
    if (!shot.leader.companions.empty()) sidecarIndex_.forget(shot.folder);
    return true;
}

LyingShot SortEngine::shotLyingAt(const fs::path& file) {
    const fs::path folder = file.parent_path();
    const std::string name = lastPathComponent(file);
    const auto withCompanions = [&](const std::string& each) {
        return LyingShot::File{each, sidecarIndex_.companions(folder / each, *files_)};
    };
    LyingShot shot{folder, withCompanions(name), {}};
    for (const auto& sibling : Shots::siblingNames(name, namesOrNone(folder, *files_))) {
        shot.siblings.push_back(withCompanions(sibling));
    }
    return shot;
}

}  // namespace ornivo
