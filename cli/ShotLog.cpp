#include "cli/ShotLog.h"

#include <utility>
#include <variant>

#include "cli/Numbers.h"
#include "identification/BirdClassifierLabels.h"

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

std::string shotLine(const Shot& shot) {
    if (shot.failure) return "✗ " + shot.fileName + ": " + *shot.failure;
    if (!shot.species) return shot.fileName;
    const std::string name = BirdClassifierLabels::displayName(shot.species->topLabel());
    const std::string folder = shot.called ? name : SortEngine::uncertainFolderName;
    return shot.fileName + ": " + name + " " + percentage(shot.species->confidence()) + " → " +
           folder + "/";
}

Tone toneOf(const Shot& shot) {
    if (shot.failure) return Tone::error;
    return shot.called ? Tone::accent : Tone::subdued;
}

}  // namespace ornivo::cli
