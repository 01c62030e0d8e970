#include "cli/Consent.h"

#include <string>

#include "cli/Numbers.h"
#include "cli/UsageError.h"

namespace ornivo::cli {

namespace {

bool asks(const SortOptions& options, const RunManner& manner) {
    return options.mode == CopyMode::trashOriginal && !manner.dryRun && !manner.yes;
}

std::string originals(const RunScope& scope) {
    if (scope.mode == AppMode::find) return "the originals of what is found";
    return counted(scope.files.size() - scope.startIndex(), "original", "originals");
}

}  // namespace

void requireConsentToBePossible(const SortOptions& options, const RunManner& manner,
                                const Console& console) {
    if (!asks(options, manner) || console.canAsk()) return;
    throw UsageError(
        "Your originals are to go to the Trash, and there is no terminal to ask on. Add --yes to "
        "go ahead.");
}

bool consents(const RunScope& scope, const SortOptions& options, const RunManner& manner,
              Console& console) {
    if (!asks(options, manner) || scope.files.empty()) return true;
    if (console.confirm("Move " + originals(scope) +
                        " to the Trash, each once its copy is written?")) {
        return true;
    }
    console.note("Nothing was done.");
    return false;
}

}  // namespace ornivo::cli
