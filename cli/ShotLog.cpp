#include "cli/ShotLog.h"

#include <utility>
#include <variant>

namespace ornivo::cli {

std::optional<Shot> ShotLog::take(const SortEngine::Event& event) {
    if (const auto* prediction = std::get_if<SortEngine::Prediction>(&event)) {
        if (!pending_) pending_ = Shot{fileName_, std::nullopt, false, std::nullopt};
        if (prediction->species) {
            pending_->species = prediction->species;
            pending_->called = !prediction->notice;
        } else {
            pending_->failure = prediction->notice.value_or("");
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
