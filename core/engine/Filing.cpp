#include <charconv>
#include <utility>

#include "engine/FolderName.h"
#include "engine/SortEngine.h"
#include "engine/Warnings.h"
#include "media/PhotoDate.h"
#include "media/Shots.h"
#include "media/Trash.h"
#include "platform/Collision.h"
#include "platform/Error.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// A copy whose source will go to the trash must have reached the disk before.
Durability durability(const SortOptions& options) {
    return options.mode == CopyMode::trashOriginal ? Durability::flushed : Durability::cached;
}

/// A species folder's name as part of a file name: blanks as "_", otherwise letters and numbers.
std::string fileNamePart(std::string_view folder) {
    const std::string joined = replacing(folder, ' ', '_');
    std::string part;
    for (const std::string_view character : characters(joined)) {
        if (character == "_" || isLetter(character) || isNumber(character)) part += character;
    }
    return part;
}

/// A file's name as part of a sentence.
std::string shownName(const fs::path& file) {
    return wellFormed(lastPathComponent(file));
}

/// A folder that can't be listed counts as empty.
std::vector<std::string> namesIn(const fs::path& folder, const Files& files) {
    try {
        return files.namesIn(folder);
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace

std::vector<std::string> SortEngine::place(const fs::path& source,
                                           const std::vector<fs::path>& shotPartners,
                                           const fs::path& baseDest, const std::string& folder,
                                           const SortOptions& options,
                                           const PhotoMetadata& metadata) {
    const fs::path target = makeTarget(source, baseDest / folderName(folder), options, metadata);
    const bool isRenaming = options.rename && folder != uncertainFolderName;
    const std::string sourceName = lastPathComponent(source);
    const std::string newName = isRenaming ? nextName(folder, source) : sourceName;
    const fs::path dest = resolveCollision(target / newName);
    std::vector<std::string> warnings = placeFile(source, dest, options);
    lastPlacedURL_ = dest;

    const std::string stem = deletingPathExtension(lastPathComponent(dest));
    for (const fs::path& partner : shotPartners) {
        const std::string name = lastPathComponent(partner);
        const std::string partnerName = isRenaming ? stem + "." + pathExtension(name) : name;
        try {
            append(warnings, placeFile(partner, resolveCollision(target / partnerName), options));
        } catch (const std::exception& error) {
            warnings.push_back("Filed " + shownName(source) + " but not " + shownName(partner) +
                               ": " + error.what());
        }
    }
    // A promotion out of this folder needs a true listing of it.
    if (folder == uncertainFolderName) sidecarIndex_.forget(target);
    return warnings;
}

fs::path SortEngine::makeTarget(const fs::path& source, const fs::path& folder,
                                const SortOptions& options, const PhotoMetadata& metadata) {
    fs::path target = folder;
    // A camera may have written anything as its day.
    if (options.dateSubfolders) target /= folderName(PhotoDate::string(metadata, source, *files_));
    files_->createDirectories(target);
    return target;
}

std::string SortEngine::nextName(const std::string& folder, const fs::path& source) {
    // The number is spent even if the copy fails, so that no later file can be taken for this one.
    const int number = ++perSpeciesCounter_[folder];
    return fileNamePart(folder) + "_" + paddedText(number, 3) + "." +
           pathExtension(lastPathComponent(source));
}

std::vector<std::string> SortEngine::placeFile(const fs::path& source, const fs::path& dest,
                                               const SortOptions& options) {
    files_->copy(source, dest, durability(options));
    PlacedCompanions companions = placeCompanions(source, dest, durability(options));
    append(companions.warnings, disposeOriginal(source, companions.copied, options));
    return std::move(companions.warnings);
}

SortEngine::PlacedCompanions SortEngine::placeCompanions(const fs::path& photo,
                                                         const fs::path& besidePlaced,
                                                         Durability durability) {
    PlacedCompanions placed;
    for (const Sidecars::Companion& companion : sidecarIndex_.companions(photo, *files_)) {
        const std::string newName = companion.destinationName(lastPathComponent(besidePlaced));
        try {
            files_->copy(companion.url, resolveCollision(besidePlaced.parent_path() / newName),
                         durability);
            placed.copied.push_back(companion.url);
        } catch (const std::exception& error) {
            placed.warnings.push_back("Kept " + shownName(companion.url) +
                                      " where it was — couldn't file it with " + shownName(photo) +
                                      ": " + error.what());
        }
    }
    return placed;
}

std::vector<std::string> SortEngine::disposeOriginal(const fs::path& source,
                                                     const std::vector<fs::path>& companions,
                                                     const SortOptions& options) {
    if (options.mode == CopyMode::keep) return {};
    try {
        Trash::trash(source, *files_);
    } catch (const std::exception& error) {
        // Companions stay with their photograph.
        return {error.what()};
    }
    std::vector<std::string> warnings;
    for (const fs::path& companion : companions) {
        try {
            if (files_->exists(companion)) Trash::trash(companion, *files_);
        } catch (const std::exception& error) {
            warnings.emplace_back(error.what());
        }
    }
    return warnings;
}

bool SortEngine::moveOutOfUncertain(const fs::path& from, const fs::path& baseDest,
                                    const std::string& folder) {
    if (!files_->exists(from)) return false;
    const fs::path target = baseDest / folderName(folder);
    files_->createDirectories(target);
    const fs::path home = from.parent_path();
    const std::string name = lastPathComponent(from);
    const fs::path dest = resolveCollision(target / name);
    const std::vector<Sidecars::Companion> companions = sidecarIndex_.companions(from, *files_);
    const std::vector<std::string> siblings = Shots::siblingNames(name, namesIn(home, *files_));

    files_->move(from, dest);
    for (const std::string& sibling : siblings) moveSibling(home / sibling, target);
    moveCompanions(companions, dest);
    if (!companions.empty()) sidecarIndex_.forget(home);
    return true;
}

void SortEngine::moveSibling(const fs::path& sibling, const fs::path& target) {
    const std::vector<Sidecars::Companion> companions = sidecarIndex_.companions(sibling, *files_);
    const fs::path dest = resolveCollision(target / lastPathComponent(sibling));
    try {
        files_->move(sibling, dest);
    } catch (const std::exception&) {
        return;
    }
    moveCompanions(companions, dest);
}

void SortEngine::moveCompanions(const std::vector<Sidecars::Companion>& companions,
                                const fs::path& dest) {
    for (const Sidecars::Companion& companion : companions) {
        const std::string newName = companion.destinationName(lastPathComponent(dest));
        try {
            files_->move(companion.url, resolveCollision(dest.parent_path() / newName));
        } catch (const std::exception&) {
            // The photograph has arrived; what doesn't follow it stays in `_Uncertain`.
        }
    }
}

fs::path SortEngine::resolveCollision(const fs::path& url) const {
    return ornivo::resolveCollision(url, *files_);
}

std::int64_t SortEngine::sequenceNumber(std::string_view name, std::int64_t fallback) {
    const std::string stem = deletingPathExtension(name);
    const auto all = characters(stem);
    std::size_t start = stem.size();
    for (auto each = all.rbegin(); each != all.rend() && isNumber(*each); ++each) {
        start -= each->size();
    }
    std::int64_t number = 0;
    const char* const end = stem.data() + stem.size();
    const auto parsed = std::from_chars(stem.data() + start, end, number);
    return parsed.ec == std::errc() && parsed.ptr == end ? number : fallback;
}

bool SortEngine::isOutOfSpace(const std::exception& error) {
    constexpr int deepest = 8;
    constexpr int noSpaceLeft = 28;
    const auto* look = dynamic_cast<const Error*>(&error);
    for (int level = 0; look && level < deepest; ++level) {
        if (look->domain() == Error::cocoaDomain && look->code() == Error::fileWriteOutOfSpace) {
            return true;
        }
        if (look->domain() == Error::posixDomain && look->code() == noSpaceLeft) return true;
        look = look->underlying().get();
    }
    return false;
}

}  // namespace ornivo
