#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "vocabulary/AppMode.h"
#include "vocabulary/BirdSpecies.h"
#include "vocabulary/JobState.h"

namespace ornivo::app {

/// What of the state the footer speaks of.
struct FooterState {
    JobState jobState = JobState::idle;
    AppMode appMode = AppMode::sort;
    /// Of the run under way.
    int percent = 0;
    bool hasResult = false;
    bool hasSource = false;
    bool hasSink = false;
    bool hasTargets = false;
    std::vector<BirdSpecies> unrecognised = {};
    /// Photographs found, once a scan has ended.
    std::optional<int> found = std::nullopt;
};

/// What is going on, or what is missing. Numbers as a locale writes them; without one, as the
/// user's does.
QString footerStatus(const FooterState& state, const std::string& locale = {});

/// The words on the primary button. `sortLabel` are those while a sort can be started.
QString primaryLabel(JobState jobState, AppMode appMode, const QString& sortLabel);

}  // namespace ornivo::app
