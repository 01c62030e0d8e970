#include "engine/PausedRunWords.h"

#include <cmath>

#include "identification/CallLevel.h"
#include "platform/Paths.h"

namespace ornivo {

std::string stopExplanation(const PausedRun& run) {
    const std::string cause =
        run.reason == PausedRun::Reason::userCancelled
            ? "You stopped this run partway through."
            : lastPathComponent(run.destination) +
                  " ran out of space partway through. Free some room and resume.";
    return cause + " Nothing was moved — these photos are still where you left them.";
}

std::string callDescription(const PausedRun& run) {
    auto level = run.callLevel ? fromRawValue<CallLevel>(*run.callLevel) : std::nullopt;
    if (!level) level = callLevelMatching(run.gate);
    if (level) return title(*level);
    return "Custom · files at " + std::to_string(std::lround(run.gate * 100)) + "%";
}

}  // namespace ornivo
