#include "cli/SortArguments.h"

#include <optional>
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

/// The levels, a line each, for the help.
std::string ladder() {
    std::string text;
    for (const CallLevel level : allCases<CallLevel>()) {
        text += "\n" + std::string(rawValue(level)) + ": " + blurb(level);
    }
    return text;
}

}  // namespace

SortArguments::SortArguments(CLI::App& command) {
    const auto declareFolder = [&](const char* name, std::string& value, const char* meaning) {
        command.add_option(name, value, meaning)->required();
    };
    declareFolder("SOURCE", source_, "Folder with the photographs and clips");
    declareFolder("DESTINATION", destination_, "Folder to sort into; made if missing");
    declareFilingOptions(command);
    declareRunOptions(command);
}

void SortArguments::declareFilingOptions(CLI::App& command) {
    const auto declareValue = [&](const char* name, auto& value, const char* placeholder,
                                  const std::string& meaning) {
        command.add_option(name, value, meaning)->type_name(placeholder)->group("How to file");
    };
    const auto declareFlag = [&](const char* name, bool& value, const char* meaning) {
        command.add_flag(name, value, meaning)->group("How to file");
    };
    declareValue("--level", level_, "LEVEL", "Which calls to file under their species:" + ladder());
    declareValue("--confidence", confidence_, "N",
                 "The same in fine steps, from 0 (the widest\nnet) to 100; 38 unless said");
    declareValue("--at", at_, "LAT,LON", "Where shots that don't tell their place were taken");
    declareValue("--region", region_, "ID|PLACE",
                 "The same by name, as in --region Kerala; see\nthe commands regions and place");
    declareFlag("--rename", rename_, "Rename files by species: CommonName_001.jpg");
    declareFlag("--date-subfolders", dateSubfolders_, "A folder for each day in those of species");
    declareFlag("--trash-originals", trashOriginals_,
                "Move originals to the Trash once copied; asks first");
}

void SortArguments::declareRunOptions(CLI::App& command) {
    const auto declareFlag = [&](const char* name, bool& value, const char* meaning) {
        command.add_flag(name, value, meaning)->group(runGroup);
    };
    declareFlag("--dry-run", dryRun_, "Say what would go where, write nothing");
    declareFlag("--json", json_, "One JSON object a line, the totals last");
    declareFlag("--yes", yes_, "Don't ask about originals");
}

SortRequest SortArguments::request() const {
    SortRequest request;
    request.source = source_;
    request.destination = destination_;
    request.options.mode = trashOriginals_ ? CopyMode::trashOriginal : CopyMode::keep;
    request.options.rename = rename_;
    request.options.dateSubfolders = dateSubfolders_;
    request.options.confidence = sliderOf(confidence_, level_);
    assumePlace(request);
    request.dryRun = dryRun_;
    request.json = json_;
    request.yes = yes_;
    return request;
}

void SortArguments::assumePlace(SortRequest& request) const {
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
