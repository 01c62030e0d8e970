#include "engine/PausedRun.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "engine/PausedRunCoding.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"

namespace ornivo {

namespace fs = std::filesystem;

long PausedRun::remainingCount() const {
    return std::max(0L, long{totalPhotos} - long{stoppedAtIndex});
}

std::string PausedRun::summary() const {
    const long remaining = remainingCount();
    const std::string photos = remaining == 1 ? " photo" : " photos";
    return std::to_string(remaining) + photos + " left to sort into " +
           lastPathComponent(destination);
}

bool PausedRun::settingsMatch(double otherGate, const std::optional<std::string>& otherLocation,
                              const std::string& otherCopyMode) const {
    return std::abs(gate - otherGate) < 0.001 && assumedLocation == otherLocation &&
           copyMode == otherCopyMode;
}

std::optional<fs::path> PausedRun::write(const fs::path& destinationFolder, Files& files) const {
    const fs::path manifest = manifestURL(destinationFolder);
    try {
        files.createDirectories(manifest.parent_path());
        files.replaceContents(manifest, encoded(*this));
    } catch (const std::exception&) {
        return std::nullopt;
    }
    return manifest;
}

std::optional<PausedRun> PausedRun::read(const fs::path& destinationFolder, const Files& files) {
    try {
        auto record = decodedPausedRun(files.read(manifestURL(destinationFolder)));
        return record && record->version == currentVersion ? record : std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

bool PausedRun::clear(const fs::path& destinationFolder, Files& files) {
    try {
        files.remove(manifestURL(destinationFolder));
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

fs::path PausedRun::manifestURL(const fs::path& destinationFolder) {
    return destinationFolder / folderName / fileName;
}

std::string PausedRun::textOf(const PhotoLocation& location) {
    return shortestText(location.latitude()) + "," + shortestText(location.longitude());
}

}  // namespace ornivo
