#pragma once

#include <string>
#include <vector>

#include "cli/RunScope.h"
#include "cli/Tone.h"
#include "vocabulary/FindResult.h"
#include "vocabulary/SortResult.h"

/// What a finished run is told in, row by row.
namespace ornivo::cli {

struct SummaryLine {
    std::string text;
    Tone tone = Tone::plain;

    bool operator==(const SummaryLine&) const = default;
};

/// A length of time in words: "42.0s" below a minute, then "2m 5s"; minutes don't roll over into
/// hours.
std::string timeLabel(double seconds);

/// The totals of a Sort run. `sinkName` is what to call the destination.
std::vector<SummaryLine> summary(const SortResult& result, const std::string& sinkName);
/// The same of a Find run.
std::vector<SummaryLine> summary(const FindResult& result, const std::string& sinkName);

/// What a run that went on had done before; its totals tell of the later part alone.
std::string earlierSummary(AppMode mode, const RunScope::EarlierPart& earlier);

}  // namespace ornivo::cli
