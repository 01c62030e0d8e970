#pragma once

#include <optional>
#include <string>

#include "cli/RunScope.h"
#include "cli/Shot.h"
#include "engine/SortEngine.h"

namespace ornivo::cli {

/// Puts a run's events together to shots: a shot is done with when the run turns to the next file
/// or ends.
class ShotLog {
public:
    /// `scope` must outlive the log.
    explicit ShotLog(const RunScope& scope) : scope_(scope) {}

    /// Takes the next event; answers the shot that it completes, if any.
    std::optional<Shot> take(const SortEngine::Event& event);

private:
    std::optional<std::string> folderOf(const SortEngine::Prediction& prediction) const;

    const RunScope& scope_;
    std::string fileName_;
    std::optional<Shot> pending_;
};

}  // namespace ornivo::cli
