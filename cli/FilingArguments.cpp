#include "cli/FilingArguments.h"

#include <string_view>
#include <utility>

#include "cli/AssumedPlace.h"
#include "cli/Numbers.h"
#include "cli/Position.h"
#include "cli/UsageError.h"
#include "identification/CallLevel.h"

namespace ornivo::cli {

namespace {

constexpr int mostConfidence = 100;
constexpr const char* helpGroup = "How to file";

int sliderOfConfidence(std::string_view text) {
    const auto number = parseWhole(text);
    if (number && *number >= 0 && *number <= mostConfidence) return *number;
    throw UsageError("--confidence takes a whole number from 0 to 100; \"" + std::string(text) +
                     "\" is not that.");
}

int sliderOfLevel(std::string_view text) {
    if (const auto level = fromRawValue<CallLevel>(text)) return slider(*level);
    throw UsageError("--level takes confirmed, probable or possible; \"" + std::string(text) +
                     "\" is none of them.");
}

int sliderOf(const std::optional<std::string>& confidence,
             const std::optional<std::string>& level) {
    if (confidence && level) {
        throw UsageError("--confidence and --level say the same thing in two ways: give one.");
    }
    if (confidence) return sliderOfConfidence(*confidence);
    return level ? sliderOfLevel(*level) : ConfidencePolicy::defaultSlider;
}

BurstInheritance burstsOf(std::string_view text) {
    if (const auto bursts = fromRawValue<BurstInheritance>(text)) return *bursts;
    throw UsageError("--bursts takes off, confirmedOnly or confirmedAndCorrected; \"" +
                     std::string(text) + "\" is none of them.");
}

/// The levels, a line each, for the help.
std::string ladder() {
    std::string text;
    for (const CallLevel level : allCases<CallLevel>()) {
        text += "\n" + std::string(rawValue(level)) + ": " + blurb(level);
    }
    return text;
}

void declareValue(CLI::App& command, const char* name, std::optional<std::string>& value,
                  const char* placeholder, const std::string& meaning) {
    command.add_option(name, value, meaning)->type_name(placeholder)->group(helpGroup);
}

void declareFlag(CLI::App& command, const char* name, bool& value, const char* meaning) {
    command.add_flag(name, value, meaning)->group(helpGroup);
}

}  // namespace

void FilingArguments::declare(CLI::App& command, AppMode mode) {
    declareCalls(command);
    declareNames(command, mode);
    declareFlag(command, "--trash-originals", trashOriginals_,
                "Move originals to the Trash once copied; asks first");
}

void FilingArguments::declareCalls(CLI::App& command) {
    declareValue(command, "--level", level_, "LEVEL",
                 "Which calls to file under their species:" + ladder());
    declareValue(command, "--confidence", confidence_, "N",
                 "The same in fine steps, from 0 (the widest\nnet) to 100; 38 unless said");
    declareValue(command, "--at", at_, "LAT,LON",
                 "Where shots that don't tell their place were taken");
    declareValue(command, "--region", region_, "ID|PLACE",
                 "The same by name, as in --region Kerala; see\nthe commands regions and place");
}

void FilingArguments::declareNames(CLI::App& command, AppMode mode) {
    if (mode == AppMode::sort) {
        declareValue(command, "--bursts", bursts_, "HOW",
                     "What the frames around an uncertain one may do:\n"
                     "off: file every photo on its own, the usual way\n"
                     "confirmedOnly: confirm near-misses, measured 92%\n"
                     "right\n"
                     "confirmedAndCorrected: also correct\n"
                     "identifications, measured 53% right");
        declareFlag(command, "--rename", rename_, "Rename files by species: CommonName_001.jpg");
    }
    declareFlag(command, "--date-subfolders", dateSubfolders_,
                "A folder for each day in those of species");
}

void FilingArguments::applyTo(RunRequest& request) const {
    SortOptions& options = request.options;
    options.mode = trashOriginals_ ? CopyMode::trashOriginal : CopyMode::keep;
    options.rename = rename_;
    options.dateSubfolders = dateSubfolders_;
    options.confidence = sliderOf(confidence_, level_);
    if (bursts_) options.burstInheritance = burstsOf(*bursts_);
    assumePlace(request);
}

void FilingArguments::assumePlace(RunRequest& request) const {
    if (at_ && region_) {
        throw UsageError("--at and --region say the same thing in two ways: give one.");
    }
    if (at_) request.options.assumedLocation = parsePosition(*at_);
    if (!region_) return;
    AssumedPlace place = resolveAssumedPlace(*region_);
    request.options.assumedLocation = place.location;
    request.placeNote = std::move(place.note);
}

}  // namespace ornivo::cli
