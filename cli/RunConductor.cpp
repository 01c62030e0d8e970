#include "cli/RunConductor.h"

#include <memory>
#include <string>
#include <utility>

#include "cli/BundledIdentifier.h"
#include "cli/JsonReporter.h"
#include "cli/LineReporter.h"
#include "cli/PretendingFiles.h"
#include "cli/ResumeCommandLine.h"
#include "cli/RunFollower.h"
#include "cli/TerminalReporter.h"
#include "cli/TerminalText.h"
#include "engine/PausedRun.h"

namespace ornivo::cli {

namespace {

std::unique_ptr<RunReporter> makeReporter(const RunManner& manner, const RunScope& scope,
                                          Console& console) {
    if (manner.json) return std::make_unique<JsonReporter>(console, scope);
    if (console.outIsTerminal()) return std::make_unique<TerminalReporter>(console, scope);
    return std::make_unique<LineReporter>(console, scope);
}

SortEngine::RunInput inputOf(const RunScope& scope, const SortOptions& options) {
    return {.mode = scope.mode,
            .paths = scope.files,
            .destination = scope.destination,
            .options = options,
            .targetSpecies = scope.targets,
            .startIndex = scope.startIndex()};
}

RunEnd doRun(const RunScope& scope, const SortOptions& options, bool dryRun,
             RunReporter& reporter) {
    const auto pretending = dryRun ? std::make_shared<PretendingFiles>(Files::system()) : nullptr;
    const std::shared_ptr<Files> files = pretending ? pretending : Files::system();
    SortEngine engine(bundledIdentifier(), std::make_shared<JobController>(), files);
    RunEnd end = followRun(engine, inputOf(scope, options), reporter);
    // The engine counts from where it began; the user's count goes over the whole list.
    const auto before = static_cast<int>(scope.startIndex());
    std::visit([before](auto& finished) { finished.result.processed += before; }, end);
    if (pretending) reporter.tellPlan(pretending->plan());
    return end;
}

/// Whether the record in the destination is the one of a run that stopped at this index.
bool isNoted(const RunScope& scope, std::size_t stoppedAt) {
    const auto record = PausedRun::read(scope.destination, *Files::system());
    return record && record->stoppedAtIndex == static_cast<int>(stoppedAt) &&
           record->sourcePaths.size() == scope.files.size();
}

void tellHowToGoOn(const RunScope& scope, int lastProcessedIndex, Console& console) {
    const auto stoppedAt = static_cast<std::size_t>(lastProcessedIndex + 1);
    if (isNoted(scope, stoppedAt)) {
        console.line(printable("To go on then: " + resumeCommandLine(scope)));
        return;
    }
    console.line(printable("There was no room left to note where it stopped, which was at " +
                           scope.files.at(stoppedAt).string() + "."),
                 Tone::error);
}

RunEnd endOfNothing(AppMode mode) {
    if (mode == AppMode::find) return SortEngine::FindFinished{};
    return SortEngine::SortFinished{};
}

}  // namespace

ExitCode conductRun(const RunScope& scope, const SortOptions& options, const RunManner& manner,
                    Console& console) {
    const auto reporter = makeReporter(manner, scope, console);
    // A new run over nothing would still take the record of an earlier run that can go on.
    if (scope.files.empty() && !scope.earlier) {
        if (manner.json) reporter->tellTotals(endOfNothing(scope.mode));
        return ExitCode::done;
    }
    const RunEnd end = doRun(scope, options, manner.dryRun, *reporter);
    reporter->tellTotals(end);
    return std::visit(
        [&](const auto& finished) {
            if (finished.stopReason == StopReason::diskFull() && !manner.json) {
                tellHowToGoOn(scope, finished.lastProcessedIndex, console);
            }
            return exitCodeOfRun(finished.stopReason, finished.result.errors);
        },
        end);
}

}  // namespace ornivo::cli
