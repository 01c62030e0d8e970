#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// Finds the photographs and clips in a folder, and keeps out of photo libraries that belong to
/// another application, which tracks what is in them by name and location.
namespace ornivo::FileScanner {

struct Scan {
    /// Every media file, clips included, in the order of `walkFolder`.
    std::vector<std::filesystem::path> images;
    /// The library's folder name, if the scan was refused.
    std::optional<std::string> refusedLibrary;
    /// What the files of `images` take up on their volume.
    std::int64_t totalBytes = 0;

    /// Why the scan was refused, in words for the user.
    std::optional<std::string> refusalMessage() const;
};

/// Goes through the folder and everything below it, but for what is hidden by a leading dot, for
/// links, and for libraries inside it. A folder inside a library, or a link into one, is refused.
/// A folder that is missing or cannot be read has no files.
Scan scan(const std::filesystem::path& folder);

/// The files alone.
std::vector<std::filesystem::path> collectImages(const std::filesystem::path& folder);

/// The nearest folder, the path itself first, that is a library by its name.
std::optional<std::filesystem::path> enclosingLibrary(const std::filesystem::path& path);

/// Extensions in lower case, without the dot.
const std::set<std::string, std::less<>>& imageExtensions();
/// Those of photographs and of clips.
const std::set<std::string, std::less<>>& mediaExtensions();
const std::set<std::string, std::less<>>& libraryPackageExtensions();

}  // namespace ornivo::FileScanner
