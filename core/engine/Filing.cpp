#include <utility>

#include "engine/FolderName.h"
#include "engine/SortEngine.h"
#include "engine/Warnings.h"
#include "media/PhotoDate.h"
#include "media/Trash.h"
#include "platform/Collision.h"
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
    lastPlacedPartners_.clear();

    const std::string stem = deletingPathExtension(lastPathComponent(dest));
    for (const fs::path& partner : shotPartners) {
        const std::string name = lastPathComponent(partner);
        const std::string partnerName = isRenaming ? stem + "." + pathExtension(name) : name;
        try {
            const fs::path partnerDest = resolveCollision(target / partnerName);
            append(warnings, placeFile(partner, partnerDest, options));
            lastPlacedPartners_.push_back(partnerDest);
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

fs::path SortEngine::resolveCollision(const fs::path& url) const {
    return ornivo::resolveCollision(url, *files_);
}

}  // namespace ornivo
