#include "review/PosterFolder.h"

#include <cerrno>

#include "platform/Error.h"
#include "platform/FileErrors.h"
#include "platform/Sha256.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// What a JPEG begins with, and what a comment in it begins with (ITU-T T.81, B.1.1.3).
constexpr std::string_view startOfImage = "\xFF\xD8";
constexpr std::string_view comment = "\xFF\xFE";
constexpr std::string_view words = "Ornivo review picture ";
constexpr std::size_t digestDigits = 64;
constexpr const char* extension = ".jpg";
const std::string folderSlash = std::string(PosterFolder::name) + "/";

/// The comment with its length, which counts itself and what follows it.
std::string markOf(std::string_view rest) {
    Sha256 digest;
    digest.update(rest);
    constexpr std::size_t length = 2 + words.size() + digestDigits;
    static_assert(length < 256);
    std::string mark(comment);
    mark += '\0';
    mark += static_cast<char>(length);
    mark += words;
    return mark + digest.hexDigest();
}

constexpr std::size_t markLength = comment.size() + 2 + words.size() + digestDigits;

}  // namespace

std::string PosterFolder::nameFor(std::string_view fileName) {
    return std::string(fileName) + extension;
}

std::string PosterFolder::pathFor(std::string_view fileName) {
    return folderSlash + nameFor(fileName);
}

std::string PosterFolder::marked(std::string_view jpeg) {
    const std::string_view rest = jpeg.substr(startOfImage.size());
    return std::string(startOfImage) + markOf(rest) + std::string(rest);
}

bool PosterFolder::isPoster(std::string_view bytes) {
    if (bytes.size() < startOfImage.size() + markLength) return false;
    if (!bytes.starts_with(startOfImage)) return false;
    bytes.remove_prefix(startOfImage.size());
    return bytes.starts_with(markOf(bytes.substr(markLength)));
}

void PosterFolder::write(std::string_view fileName, std::string_view marked) {
    files_.createDirectories(path_);
    // A link may lead anywhere.
    if (!files_.isFolder(path_)) throw folderError(path_, "made", EEXIST);
    const fs::path file = path_ / nameFor(fileName);
    removeIfPoster(file);
    files_.create(file, marked);
}

void PosterFolder::remove(const LyingShot& shot) {
    if (!files_.isFolder(path_)) return;
    removeIfPoster(path_ / nameFor(shot.leader.name));
    for (const LyingShot::File& sibling : shot.siblings) {
        removeIfPoster(path_ / nameFor(sibling.name));
    }
}

void PosterFolder::removeAllBut(const std::set<std::string>& paths) {
    if (!files_.isFolder(path_)) return;
    for (const std::string& each : namesOrNone(path_, files_)) {
        const bool isNamedLikeOne = each.ends_with(extension);
        if (isNamedLikeOne && !paths.contains(folderSlash + each)) removeIfPoster(path_ / each);
    }
}

void PosterFolder::removeIfPoster(const fs::path& file) {
    try {
        if (files_.exists(file) && isPoster(files_.read(file))) files_.remove(file);
    } catch (const Error&) {
        // A poster too many harms nobody.
    }
}

}  // namespace ornivo
