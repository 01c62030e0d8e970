#pragma once

#include <map>
#include <string>
#include <vector>

#include "vocabulary/StopReason.h"

namespace ornivo {

/// The totals of a Sort run, across a stop at a full disk and a resume.
struct SortResult {
    /// Shots filed under a species, burst promotions included.
    int sorted = 0;
    /// Shots in `_Uncertain` at the end.
    int unidentified = 0;
    /// Shots whose top confidence was under the gate, promoted ones included.
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
    /// Species folder to shots filed there; `_Uncertain` is never a key.
    std::map<std::string, int> perSpecies;
    /// Working time, without the time between a stop and a later resume.
    double elapsedSeconds = 0;
    std::vector<std::string> warnings;
    /// Those of `sorted` that the burst pass took out of `_Uncertain`.
    int burstPromoted = 0;

    bool operator==(const SortResult&) const = default;
};

}  // namespace ornivo
