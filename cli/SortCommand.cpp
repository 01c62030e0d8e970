#include "cli/SortCommand.h"

#include <memory>
#include <string>

#include "cli/BundledIdentifier.h"
#include "cli/CommandHelp.h"
#include "cli/JsonReporter.h"
#include "cli/LineReporter.h"
#include "cli/Numbers.h"
#include "cli/PretendingFiles.h"
#include "cli/RunFollower.h"
#include "cli/RunScope.h"
#include "cli/SortFolders.h"
#include "cli/TerminalReporter.h"
#include "cli/TerminalText.h"
#include "cli/UsageError.h"
#include "engine/SortEngine.h"
#include "media/FileScanner.h"

namespace ornivo::cli {

namespace {

const std::vector<Example> examples{
    {"ornivo-cli sort ~/Pictures/Inbox ~/Pictures/Birds",
     "copy every shot into a folder of its species"},
    {"ornivo-cli sort Inbox Birds --dry-run", "only say what would go where"},
    {"ornivo-cli sort Inbox Birds --level confirmed --date-subfolders",
     "file only sure calls, by species and day"},
    {"ornivo-cli sort Inbox Birds --at 51.5,-0.12",
     "favour birds of London where a shot tells no place"},
};

RunScope scan(const SortRequest& request) {
    const SortFolders folders = resolveFolders(request.source, request.destination);
    FileScanner::Scan found = FileScanner::scan(folders.source);
    if (const auto refusal = found.refusalMessage()) throw UsageError(*refusal);

    RunScope scope{folders.source, folders.destination, std::move(found.images), 0};
    if (!folders.destinationInSource) return scope;
    const std::size_t before = scope.files.size();
    scope.files = filesOutside(*folders.destinationInSource, std::move(scope.files));
    scope.leftOut = before - scope.files.size();
    return scope;
}

void requireConsentToBePossible(const SortRequest& request, const Console& console) {
    if (request.yes || console.canAsk()) return;
    throw UsageError(
        "--trash-originals moves your originals to the Trash, and there is no terminal to ask on. "
        "Add --yes to go ahead.");
}

bool consents(const SortRequest& request, const RunScope& scope, Console& console) {
    if (request.yes) return true;
    return console.confirm("Move " + counted(scope.files.size(), "original", "originals") +
                           " to the Trash, each once its copy is written?");
}

void tellScope(const RunScope& scope, const SortRequest& request, Console& console) {
    if (!request.placeNote.empty()) console.note(printable(request.placeNote));
    if (scope.leftOut > 0) {
        console.note(counted(scope.leftOut,
                             "file that lies in the destination already is left out.",
                             "files that lie in the destination already are left out."));
    }
    if (scope.files.empty() && !request.json) {
        console.line(
            printable("No photographs or clips found in " + request.source.string() + "."));
    }
}

std::unique_ptr<RunReporter> makeReporter(const SortRequest& request, const RunScope& scope,
                                          Console& console) {
    if (request.json) return std::make_unique<JsonReporter>(console, scope);
    if (console.outIsTerminal()) return std::make_unique<TerminalReporter>(console, scope);
    return std::make_unique<LineReporter>(console, scope);
}

SortEngine::SortFinished sortFiles(const SortRequest& request, const RunScope& scope,
                                   RunReporter& reporter) {
    const auto pretending =
        request.dryRun ? std::make_shared<PretendingFiles>(Files::system()) : nullptr;
    const std::shared_ptr<Files> files = pretending ? pretending : Files::system();
    SortEngine engine(bundledIdentifier(), std::make_shared<JobController>(), files);
    SortEngine::RunInput input;
    input.paths = scope.files;
    input.destination = scope.destination;
    input.options = request.options;
    auto finished = followRun(engine, std::move(input), reporter);
    if (pretending) reporter.tellPlan(pretending->plan());
    return finished;
}

}  // namespace

SortCommand::SortCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("sort", "Sort a folder of photographs by species")),
      arguments_(command_) {
    addHelp(command_, SortArguments::runGroup, examples);
}

ExitCode SortCommand::run(Console& console) {
    const SortRequest request = arguments_.request();
    const bool asks = request.options.mode == CopyMode::trashOriginal && !request.dryRun;
    if (asks) requireConsentToBePossible(request, console);

    const RunScope scope = scan(request);
    tellScope(scope, request, console);
    if (asks && !scope.files.empty() && !consents(request, scope, console)) {
        console.note("Nothing was done.");
        return ExitCode::stopped;
    }

    const auto reporter = makeReporter(request, scope, console);
    // A run over nothing would still take the record of an earlier run that can go on.
    if (scope.files.empty()) {
        if (request.json) reporter->tellTotals({});
        return ExitCode::done;
    }
    const auto finished = sortFiles(request, scope, *reporter);
    reporter->tellTotals(finished);
    return exitCodeOfRun(finished.stopReason, finished.result.errors);
}

}  // namespace ornivo::cli
