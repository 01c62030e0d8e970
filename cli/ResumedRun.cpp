#include "cli/ResumedRun.h"

#include <algorithm>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "cli/Numbers.h"
#include "cli/UsageError.h"
#include "identification/CallLevel.h"

namespace ornivo::cli {

namespace {

[[noreturn]] void refuse(const std::string& key) {
    throw std::runtime_error("The record of the paused run makes no sense: " + key +
                             ". Nothing was done.");
}

/// The value that a word of the record stands for.
template <typename Value>
Value meant(const std::string& word, const char* key) {
    if (const auto value = fromRawValue<Value>(word)) return *value;
    refuse(std::string(key) + " is \"" + word + "\"");
}

PhotoLocation placeOf(std::string_view text) {
    const auto comma = std::min(text.find(','), text.size());
    const auto latitude = parseNumber(text.substr(0, comma));
    const auto longitude = parseNumber(text.substr(std::min(comma + 1, text.size())));
    const auto place =
        latitude && longitude ? PhotoLocation::make(*latitude, *longitude) : std::nullopt;
    if (!place) refuse("assumedLocation is \"" + std::string(text) + "\"");
    return *place;
}

int sliderOf(const PausedRun& record) {
    const auto level = fromRawValue<CallLevel>(record.callLevel.value_or(""));
    return level ? slider(*level) : ConfidencePolicy::sliderPosition(record.gate);
}

SortOptions optionsOf(const PausedRun& record) {
    SortOptions options;
    options.mode = meant<CopyMode>(record.copyMode, "copyMode");
    options.rename = record.rename;
    options.dateSubfolders = record.dateSubfolders;
    options.confidence = sliderOf(record);
    if (record.assumedLocation) options.assumedLocation = placeOf(*record.assumedLocation);
    options.burstInheritance = meant<BurstInheritance>(record.burstInheritance, "burstInheritance");
    return options;
}

std::size_t startIndexOf(const PausedRun& record) {
    const std::size_t files = record.sourcePaths.size();
    const auto index = static_cast<std::size_t>(std::max(record.stoppedAtIndex, 0));
    if (record.stoppedAtIndex < 0 || index > files) {
        refuse("it stopped at file " + std::to_string(record.stoppedAtIndex) + " of a list of " +
               std::to_string(files));
    }
    return index;
}

void checkTargets(AppMode mode, const std::vector<BirdSpecies>& targets) {
    if (mode == AppMode::find && targets.empty()) {
        throw UsageError(
            "The paused run was a search, and its record doesn't hold the species. Name each "
            "again with --species.");
    }
    if (mode == AppMode::sort && !targets.empty()) {
        throw UsageError("The paused run was no search: leave --species away.");
    }
}

/// A card that isn't plugged in would otherwise make each file an error, and the run complete.
void checkThatSomeAreThere(const RunScope& scope) {
    const auto left = std::span(scope.files).subspan(scope.startIndex());
    const auto isThere = [](const std::filesystem::path& file) {
        std::error_code failure;
        return std::filesystem::exists(file, failure);
    };
    if (left.empty() || std::ranges::any_of(left, isThere)) return;
    throw std::runtime_error("None of the files left is there, the first being " +
                             left.front().string() +
                             ". Is the disk on which they lie connected? Nothing was done.");
}

}  // namespace

ResumedRun resumedRun(const PausedRun& record, const std::filesystem::path& destination,
                      const std::vector<BirdSpecies>& targets) {
    const auto mode = meant<AppMode>(record.mode, "mode");
    checkTargets(mode, targets);
    ResumedRun run;
    run.options = optionsOf(record);
    run.scope.destination = destination;
    run.scope.files.assign(record.sourcePaths.begin(), record.sourcePaths.end());
    run.scope.mode = mode;
    run.scope.targets = targets;
    run.scope.earlier = {.files = startIndexOf(record),
                         .sorted = record.sortedSoFar,
                         .uncertain = record.uncertainSoFar};
    checkThatSomeAreThere(run.scope);
    return run;
}

}  // namespace ornivo::cli
