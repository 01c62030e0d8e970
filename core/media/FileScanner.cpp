#include "media/FileScanner.h"

#include <system_error>

#include "media/VideoDecoder.h"
#include "platform/FolderWalk.h"
#include "platform/Paths.h"

namespace ornivo::FileScanner {
namespace {

namespace fs = std::filesystem;

bool isLibrary(const fs::path& folder) {
    return libraryPackageExtensions().contains(lowercasedExtension(folder));
}

bool isHidden(const fs::path& path) {
    return lastPathComponent(path).starts_with('.');
}

/// The library that the folder is in, whether by the path given or by what a link leads to.
std::optional<fs::path> refusingLibrary(const fs::path& folder) {
    if (auto library = enclosingLibrary(folder)) return library;
    std::error_code missing;
    const fs::path resolved = fs::canonical(folder, missing);
    return missing ? std::nullopt : enclosingLibrary(resolved);
}

}  // namespace

std::optional<std::string> Scan::refusalMessage() const {
    if (!refusedLibrary) return std::nullopt;
    return *refusedLibrary +
           " is a managed photo library. Ornivo won't sort inside one — those photographs belong "
           "to another app, which tracks them by name and location. Export the ones you want into "
           "an ordinary folder first, then sort that.";
}

Scan scan(const fs::path& folder) {
    Scan result;
    if (const auto library = refusingLibrary(folder)) {
        result.refusedLibrary = lastPathComponent(*library);
        return result;
    }
    const auto& wanted = mediaExtensions();
    walkFolder(folder, [&](const FolderEntry& entry) {
        if (isHidden(entry.path)) return Descent::skip;
        if (entry.isDirectory) return isLibrary(entry.path) ? Descent::skip : Descent::enter;
        if (entry.isRegularFile && wanted.contains(lowercasedExtension(entry.path))) {
            result.images.push_back(entry.path);
            result.totalBytes += entry.allocatedBytes;
        }
        return Descent::skip;
    });
    return result;
}

std::vector<fs::path> collectImages(const fs::path& folder) {
    return scan(folder).images;
}

std::optional<fs::path> enclosingLibrary(const fs::path& path) {
    for (fs::path at = standardized(path); at.has_relative_path(); at = at.parent_path()) {
        if (isLibrary(at)) return at;
    }
    return std::nullopt;
}

const std::set<std::string, std::less<>>& imageExtensions() {
    static const std::set<std::string, std::less<>> extensions{
        "jpg", "jpeg", "png", "tiff", "tif", "heic", "heif", "webp",
        "raw", "cr2",  "cr3", "nef",  "arw", "dng",  "orf",  "rw2"};
    return extensions;
}

const std::set<std::string, std::less<>>& mediaExtensions() {
    static const auto extensions = [] {
        auto all = imageExtensions();
        all.insert(VideoDecoder::videoExtensions().begin(), VideoDecoder::videoExtensions().end());
        return all;
    }();
    return extensions;
}

const std::set<std::string, std::less<>>& libraryPackageExtensions() {
    static const std::set<std::string, std::less<>> extensions{
        "photoslibrary", "photolibrary", "aplibrary", "migratedaplibrary",
        "lrlibrary",     "lrdata",       "cocatalog"};
    return extensions;
}

}  // namespace ornivo::FileScanner
