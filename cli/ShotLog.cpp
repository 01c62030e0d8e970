#include "cli/ShotLog.h"

#include <utility>
#include <variant>

#include "cli/MatchedTarget.h"
#include "engine/FolderName.h"
#include "identification/BirdClassifierLabels.h"

namespace ornivo::cli {

std::optional<std::string> ShotLog::folderOf(const SortEngine::Prediction& prediction) const {
    if (scope_.mode == AppMode::find) {
        const auto target = matchedTarget(scope_, prediction);
        return target ? std::optional(folderName(target->displayName())) : std::nullopt;
    }
    return prediction.notice ? SortEngine::uncertainFolderName
                             : folderName(displayName(*prediction.species));
}

std::optional<Shot> ShotLog::take(const SortEngine::Event& event) {
    if (const auto* prediction = std::get_if<SortEngine::Prediction>(&event)) {
        if (!pending_) pending_ = Shot{fileName_};
        if (prediction->species) {
            pending_->species = prediction->species;
            pending_->called = !prediction->notice;
            pending_->folder = folderOf(*prediction);
        } else {
            pending_->failure = prediction->notice.value_or("");
            pending_->folder.reset();
        }
        return std::nullopt;
    }
    if (std::holds_alternative<SortEngine::DiskFull>(event)) {
        // The shot was classified and then found no room: it is left for a later run.
        pending_.reset();
        return std::nullopt;
    }
    if (const auto* progress = std::get_if<ProgressUpdate>(&event)) fileName_ = progress->fileName;
    return std::exchange(pending_, std::nullopt);
}

}  // namespace ornivo::cli
