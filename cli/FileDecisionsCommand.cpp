#include "cli/FileDecisionsCommand.h"

#include <string_view>
#include <vector>

#include "cli/CommandHelp.h"
#include "cli/EventJson.h"
#include "cli/ExistingFolder.h"
#include "cli/Input.h"
#include "cli/TerminalText.h"
#include "cli/UsageError.h"
#include "platform/Error.h"
#include "platform/Files.h"
#include "review/ReviewDecisions.h"

namespace ornivo::cli {

namespace {

using ReviewDecisions::Outcome;

constexpr const char* standardInput = "-";

const std::vector<Example> examples{
    {"ornivo-cli file-decisions ~/Pictures/Birds decisions.csv",
     "file what was decided on in _Uncertain/review.html"},
    {"wl-paste | ornivo-cli file-decisions ~/Pictures/Birds",
     "the same straight from the clipboard"},
};

void printWords(Console& console, const Outcome& outcome) {
    console.line(ReviewDecisions::statusText(outcome),
                 outcome.moved > 0 ? Tone::accent : Tone::warning);
    for (const auto& name : outcome.notFound) {
        console.line(printable("  " + name + ": not in _Uncertain"), Tone::warning);
    }
    for (const auto& name : outcome.failed) {
        console.line(printable("  " + name + ": could not be moved"), Tone::error);
    }
}

void printJson(Console& console, std::size_t decisions, const Outcome& outcome) {
    console.write(jsonLine({{"decisions", decisions},
                            {"moved", outcome.moved},
                            {"notFound", outcome.notFound},
                            {"failed", outcome.failed},
                            {"folders", outcome.folders}}));
}

/// Spreadsheets write a mark before the text that would become part of the first name.
std::string_view withoutByteOrderMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (text.starts_with(mark)) text.remove_prefix(mark.size());
    return text;
}

}  // namespace

FileDecisionsCommand::FileDecisionsCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("file-decisions", "File what was decided on in review.html")),
      file_(standardInput) {
    command_.add_option("DESTINATION", destination_, "Sorted folder, with _Uncertain in it")
        ->required();
    command_.add_option("FILE", file_,
                        "What Copy decisions gave in review.html; without\n"
                        "a file, or with -, the standard input");
    command_.add_flag("--json", json_, "One JSON object");
    addHelp(command_, "Options", examples);
}

std::string FileDecisionsCommand::pastedText(Console& console) const {
    if (file_ == standardInput) {
        if (console.inIsTerminal()) {
            console.note(
                "Press Copy decisions in _Uncertain/review.html, paste here, then press Enter and "
                "Ctrl-D.");
        }
        return console.readAll();
    }
    try {
        return readTypedPath(file_, "No decisions could be read from " + file_);
    } catch (const Error& error) {
        throw UsageError(error.localizedDescription() + ".");
    }
}

ExitCode FileDecisionsCommand::run(Console& console) {
    const auto destination = existingFolder(destination_);
    const std::string text = pastedText(console);
    const auto decisions = ReviewDecisions::parse(withoutByteOrderMark(text));
    const bool isNothing = decisions.empty();
    const Outcome outcome =
        isNothing ? Outcome{} : ReviewDecisions::apply(decisions, destination, *Files::system());
    if (json_) {
        printJson(console, decisions.size(), outcome);
    } else if (isNothing) {
        console.line(ReviewDecisions::nothingToFile, Tone::warning);
    } else {
        printWords(console, outcome);
    }
    const bool isWhole = !isNothing && outcome.notFound.empty() && outcome.failed.empty();
    return isWhole ? ExitCode::done : ExitCode::someFailed;
}

}  // namespace ornivo::cli
