#include "cli/CheckCommand.h"

#include <cstdint>
#include <filesystem>
#include <utility>
#include <vector>

#include "cli/CommandHelp.h"
#include "cli/EventJson.h"
#include "cli/Numbers.h"
#include "cli/RunFolders.h"
#include "cli/TerminalText.h"
#include "cli/UsageError.h"
#include "media/FileScanner.h"
#include "media/PhotoLocationSurveyor.h"
#include "media/SpaceEstimator.h"
#include "platform/FileSizeText.h"
#include "review/Poster.h"

namespace ornivo::cli {

namespace {

namespace fs = std::filesystem;
using Verdict = SpaceEstimate::Verdict;

/// Sizes stand in English sentences.
constexpr const char* locale = "en";

const std::vector<Example> examples{
    {"ornivo-cli check /media/CARD", "how many photos, and do they tell where they were taken?"},
    {"ornivo-cli check /media/CARD ~/Pictures/Birds", "and is there room to sort them into Birds?"},
    {"ornivo-cli check Inbox Birds && ornivo-cli sort Inbox Birds", "sort only what fits"},
};

/// What a run from one folder into another would find.
struct Findings {
    fs::path source;
    std::optional<fs::path> destination;
    std::vector<fs::path> files;
    /// Files that lie in the destination, which a run leaves out.
    std::size_t leftOut = 0;
    std::int64_t bytes = 0;
    PhotoLocationSurvey survey;
    std::optional<SpaceEstimate> space;
};

FileScanner::Scan scan(const fs::path& folder) {
    FileScanner::Scan found = FileScanner::scan(folder);
    if (const auto refusal = found.refusalMessage()) throw UsageError(*refusal);
    return found;
}

/// What lies in the destination does not count as found.
void leaveOut(const fs::path& destination, Findings& findings) {
    const std::size_t before = findings.files.size();
    findings.files = filesOutside(destination, std::move(findings.files));
    findings.leftOut = before - findings.files.size();
    if (findings.leftOut > 0) findings.bytes -= FileScanner::scan(destination).totalBytes;
}

Findings look(const std::string& source, const std::optional<std::string>& destination) {
    const RunFolders folders = destination ? resolveFolders(source, *destination)
                                           : RunFolders{resolveSource(source), {}, std::nullopt};
    FileScanner::Scan found = scan(folders.source);
    Findings findings{.source = folders.source,
                      .destination = std::nullopt,
                      .files = std::move(found.images),
                      .bytes = found.totalBytes,
                      .survey = {},
                      .space = std::nullopt};
    if (folders.destinationInSource) leaveOut(*folders.destinationInSource, findings);
    findings.survey = PhotoLocationSurveyor::survey(findings.files);
    if (!destination) return findings;
    findings.destination = folders.destination;
    if (findings.bytes < 1) return findings;
    findings.space = SpaceEstimator::estimate(findings.bytes + Poster::roomFor(findings.files),
                                              folders.source, folders.destination);
    return findings;
}

void printScan(Console& console, const Findings& findings) {
    if (findings.leftOut > 0) {
        console.note(counted(findings.leftOut,
                             "file that lies in the destination already is left out.",
                             "files that lie in the destination already are left out."));
    }
    if (findings.files.empty()) {
        console.line("No photos found", Tone::warning);
        return;
    }
    console.line(counted(findings.files.size(), "photo", "photos") +
                     " found (including subfolders), " + fileSizeText(findings.bytes, locale),
                 Tone::accent);
}

void printSurvey(Console& console, const PhotoLocationSurvey& survey) {
    if (survey.checked == 0) return;
    if (survey.foundNone()) {
        console.line("These photos carry no location.", Tone::warning);
        console.line(
            "Naming where you were shooting makes the classifier prefer birds actually recorded "
            "there. Species from elsewhere are ranked lower, never ruled out.",
            Tone::subdued);
        console.line("Name it with --region or --at when you sort.", Tone::subdued);
        return;
    }
    console.line("Location known for " + std::to_string(survey.withLocation) + " of " +
                 counted(static_cast<std::size_t>(survey.checked), "photo", "photos") +
                 (survey.isPartial() ? " looked at." : "."));
}

Tone toneOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::clones:
            return Tone::accent;
        case Verdict::fits:
            return Tone::subdued;
        case Verdict::tight:
            return Tone::warning;
        case Verdict::doesNotFit:
            return Tone::error;
    }
    return Tone::plain;
}

void printWords(Console& console, const Findings& findings) {
    printScan(console, findings);
    printSurvey(console, findings.survey);
    if (!findings.space) return;
    console.line(printable(findings.space->advice(locale)), toneOf(findings.space->verdict));
}

Json spaceJson(const SpaceEstimate& space) {
    const auto& name = space.destinationVolumeName;
    return {
        {"verdict", rawValue(space.verdict)},           {"requiredBytes", space.requiredBytes},
        {"availableBytes", space.availableBytes},       {"shortfallBytes", space.shortfallBytes()},
        {"volume", name ? Json(*name) : Json(nullptr)}, {"advice", space.advice(locale)}};
}

void printJson(Console& console, const Findings& findings) {
    const auto& [source, destination, files, leftOut, bytes, survey, space] = findings;
    console.write(jsonLine({{"source", source.string()},
                            {"destination", destination ? Json(destination->string()) : Json()},
                            {"files", files.size()},
                            {"leftOut", leftOut},
                            {"bytes", bytes},
                            {"survey",
                             {{"checked", survey.checked},
                              {"withLocation", survey.withLocation},
                              {"total", survey.total}}},
                            {"space", space ? spaceJson(*space) : Json()}}));
}

}  // namespace

CheckCommand::CheckCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("check", "Tell what a run would find, and whether it fits")) {
    command_.add_option("SOURCE", source_, "Folder with the photographs and clips")->required();
    command_.add_option("DESTINATION", destination_, "Folder that they would be sorted into");
    command_.add_flag("--json", json_, "One JSON object");
    addHelp(command_, "Options", examples);
}

ExitCode CheckCommand::run(Console& console) {
    const Findings findings = look(source_, destination_);
    json_ ? printJson(console, findings) : printWords(console, findings);
    const bool fits = !findings.space || findings.space->verdict != Verdict::doesNotFit;
    return fits ? ExitCode::done : ExitCode::diskFull;
}

}  // namespace ornivo::cli
