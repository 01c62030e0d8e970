#include "cli/Summary.h"

#include <algorithm>
#include <cstddef>

#include "cli/Numbers.h"
#include "engine/SortEngine.h"

namespace ornivo::cli {

namespace {

using Lines = std::vector<SummaryLine>;

constexpr std::size_t warningsShown = 3;

std::string text(long long number) {
    return std::to_string(number);
}

void addWarnings(Lines& lines, const std::vector<std::string>& warnings) {
    const std::size_t shown = std::min(warnings.size(), warningsShown);
    for (std::size_t i = 0; i < shown; ++i) lines.push_back({warnings[i], Tone::warning});
    if (warnings.size() == shown) return;
    lines.push_back({"+ " + std::to_string(warnings.size() - shown) + " more", Tone::subdued});
}

template <typename Result>
void addUnsureAndFailed(Lines& lines, const Result& result) {
    if (result.lowConfidence >= 1) {
        lines.push_back(
            {text(result.lowConfidence) + " photos had no confirmed call — accept probable calls?",
             Tone::warning});
    }
    if (result.errors >= 1) {
        lines.push_back({"✗ " + text(result.errors) + " errors", Tone::error});
    }
    addWarnings(lines, result.warnings);
}

template <typename Result>
void addDiskFull(Lines& lines, const Result& result, const std::string& sinkName) {
    lines.push_back({"Stopped at photo " + text(result.processed) + " of " + text(result.total) +
                         " — " + sinkName + " is full",
                     Tone::error});
    lines.push_back({"Free some space and resume — the rest are untouched in your source folder",
                     Tone::subdued});
}

}  // namespace

std::string timeLabel(double seconds) {
    if (seconds >= 60) {
        const auto whole = static_cast<long long>(seconds);
        return text(whole / 60) + "m " + text(whole % 60) + "s";
    }
    return withOneDecimal(seconds) + "s";
}

std::vector<SummaryLine> summary(const SortResult& result, const std::string& sinkName) {
    Lines lines;
    lines.push_back(
        {"✓ " + text(result.sorted) + " photos sorted into bird folders", Tone::accent});
    if (result.burstPromoted >= 1) {
        lines.push_back({"↳ " + text(result.burstPromoted) +
                             " of those came from their burst, not their own confidence",
                         Tone::subdued});
    }
    lines.push_back(
        {"? " + text(result.unidentified) + " moved to " + SortEngine::uncertainFolderName + "/",
         Tone::subdued});
    addUnsureAndFailed(lines, result);
    if (result.stopReason == StopReason::diskFull()) {
        addDiskFull(lines, result, sinkName);
    } else if (result.stopped) {
        lines.push_back(
            {"Stopped at " + text(result.processed) + "/" + text(result.total) + " — results saved",
             Tone::warning});
    }
    lines.push_back({std::to_string(result.perSpecies.size()) + " species · " +
                         timeLabel(result.elapsedSeconds),
                     Tone::subdued});
    return lines;
}

std::vector<SummaryLine> summary(const FindResult& result, const std::string& sinkName) {
    Lines lines;
    lines.push_back({"✓ " + text(result.matched) + " photos matched and copied", Tone::accent});
    lines.push_back(
        {"~ " + text(result.scanned - result.matched) + " scanned, no match", Tone::subdued});
    addUnsureAndFailed(lines, result);
    if (result.stopReason == StopReason::diskFull()) addDiskFull(lines, result, sinkName);
    lines.push_back({timeLabel(result.elapsedSeconds), Tone::subdued});
    return lines;
}

std::string earlierSummary(AppMode mode, const RunScope::EarlierPart& earlier) {
    if (mode == AppMode::find) {
        return "Before that: " + std::to_string(earlier.files) + " photos processed";
    }
    return "Before that: " + text(earlier.sorted) + " sorted · " + text(earlier.uncertain) +
           " to review";
}

}  // namespace ornivo::cli
