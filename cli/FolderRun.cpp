#include "cli/FolderRun.h"

#include <utility>

#include "cli/Consent.h"
#include "cli/Numbers.h"
#include "cli/RunConductor.h"
#include "cli/RunFolders.h"
#include "cli/RunScope.h"
#include "cli/TerminalText.h"
#include "cli/UsageError.h"
#include "media/FileScanner.h"

namespace ornivo::cli {

namespace {

RunScope scan(const RunRequest& request) {
    const RunFolders folders = resolveFolders(request.source, request.destination);
    FileScanner::Scan found = FileScanner::scan(folders.source);
    if (const auto refusal = found.refusalMessage()) throw UsageError(*refusal);

    RunScope scope{.source = folders.source,
                   .destination = folders.destination,
                   .files = std::move(found.images),
                   .mode = request.mode,
                   .targets = request.targets};
    if (!folders.destinationInSource) return scope;
    const std::size_t before = scope.files.size();
    scope.files = filesOutside(*folders.destinationInSource, std::move(scope.files));
    scope.leftOut = before - scope.files.size();
    return scope;
}

void tellScope(const RunScope& scope, const RunRequest& request, Console& console) {
    if (!request.placeNote.empty()) console.note(printable(request.placeNote));
    if (scope.leftOut > 0) {
        console.note(counted(scope.leftOut,
                             "file that lies in the destination already is left out.",
                             "files that lie in the destination already are left out."));
    }
    if (scope.files.empty() && !request.manner.json) {
        console.line(
            printable("No photographs or clips found in " + request.source.string() + "."));
    }
}

}  // namespace

ExitCode runOverFolder(const RunRequest& request, Console& console) {
    requireConsentToBePossible(request.options, request.manner, console);
    const RunScope scope = scan(request);
    tellScope(scope, request, console);
    if (!consents(scope, request.options, request.manner, console)) return ExitCode::stopped;
    return conductRun(scope, request.options, request.manner, console);
}

}  // namespace ornivo::cli
