#include <algorithm>
#include <chrono>
#include <cstddef>
#include <exception>
#include <set>

#include "engine/SortEngine.h"
#include "identification/BirdClassifierLabels.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "review/Poster.h"
#include "review/PosterFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
namespace chrono = std::chrono;

constexpr const char* csvHeader = "filename,guess1,conf1,guess2,conf2,guess3,conf3\n";

std::string csvRow(const std::string& fileName, const IdentifiedSpecies& species) {
    std::string row = ReviewPage::csvField(fileName);
    for (std::size_t rank = 0; rank < ReviewPage::guessesPerRow; ++rank) {
        if (rank < species.topK.size()) {
            const auto& [label, confidence] = species.topK[rank];
            row += "," + ReviewPage::csvField(BirdClassifierLabels::displayName(label));
            row += "," + fourPlaces(confidence);
        } else {
            row += ",,";
        }
    }
    return row + "\n";
}

}  // namespace

void SortEngine::appendReviewRow(const fs::path& baseDest, const std::string& fileName,
                                 const IdentifiedSpecies& species) {
    const fs::path folder = baseDest / uncertainFolderName;
    files_->createDirectories(folder);
    if (!reviewCSVHandle_) {
        const fs::path csv = folder / reviewCSVName;
        if (!files_->exists(csv)) files_->replaceContents(csv, csvHeader);
        reviewCSVHandle_ = files_->openForAppending(csv);
    }
    reviewCSVHandle_->write(csvRow(fileName, species));
}

void SortEngine::keepStandIn(const std::optional<std::string>& poster) {
    ReviewPage::Row& row = reviewRows_.back();
    if (Poster::isShownPicture(row.fileName)) return;
    const auto shown = std::ranges::find_if(lastPlacedPartners_, Poster::isShownPicture);
    if (shown != lastPlacedPartners_.end()) {
        row.standIn = lastPathComponent(*shown);
        return;
    }
    if (!poster) return;
    try {
        PosterFolder(lastPlacedURL_->parent_path(), *files_).write(row.fileName, *poster);
        row.standIn = PosterFolder::pathFor(row.fileName);
    } catch (const std::exception&) {
        // The page says that there is no picture.
    }
}

void SortEngine::writeReviewPage(const fs::path& baseDest, double gate) {
    if (reviewRows_.empty()) return;
    const fs::path folder = baseDest / uncertainFolderName;
    const auto now = chrono::floor<chrono::seconds>(chrono::system_clock::now());
    try {
        files_->createDirectories(folder);
        files_->replaceContents(folder / reviewPageName, ReviewPage::html(reviewRows_, gate, now));
        // The page before has gone, and what only it showed.
        std::set<std::string> shown;
        for (const ReviewPage::Row& row : reviewRows_) shown.insert(row.standIn);
        PosterFolder(folder, *files_).removeAllBut(shown);
    } catch (const std::exception&) {
        // The page is a convenience: the shots lie where they belong, and the list names them.
    }
}

}  // namespace ornivo
