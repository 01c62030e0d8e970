#pragma once

#include <string>
#include <vector>

#include "vocabulary/StopReason.h"

namespace ornivo {

/// The totals of a Find run, across a stop at a full disk and a resume.
struct FindResult {
    /// Shots copied out.
    int matched = 0;
    /// Shots that were classified.
    int scanned = 0;
    /// Shots under the gate, none of which can match.
    int lowConfidence = 0;
    /// Shots that could not be classified or filed.
    int errors = 0;
    /// Files taken from the list, so a shot of a RAW and a JPEG adds two.
    int processed = 0;
    /// Files in the list.
    int total = 0;
    /// Whether the run ended early.
    bool stopped = false;
    StopReason stopReason = StopReason::completed();
    /// Working time, without the time between a stop and a later resume.
    double elapsedSeconds = 0;
    std::vector<std::string> warnings;

    bool operator==(const FindResult&) const = default;
};

}  // namespace ornivo
