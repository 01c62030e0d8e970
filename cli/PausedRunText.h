#pragma once

#include <string>
#include <vector>

#include "engine/PausedRun.h"

namespace ornivo::cli {

/// Why a run stopped and where it stands, line by line, safe to show. Nothing runs over `columns`
/// but the reason.
std::vector<std::string> pausedRunText(const PausedRun& run, int columns);

}  // namespace ornivo::cli
