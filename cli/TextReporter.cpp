#include "cli/TextReporter.h"

#include "cli/PlanText.h"
#include "cli/Summary.h"
#include "cli/TerminalText.h"
#include "platform/Paths.h"

namespace ornivo::cli {

void TextReporter::tellPlan(const Plan& plan) {
    isDryRun_ = true;
    for (const auto& line : planText(plan, scope_.source, scope_.destination)) {
        console_.line(printable(line));
    }
}

void TextReporter::tellTotals(const SortEngine::SortFinished& finished) {
    SortResult result = finished.result;
    for (const auto& warning : result.warnings) console_.note(printable(warning), Tone::warning);
    // On one screen all of the warnings stand right above.
    if (console_.bothAreTerminals()) result.warnings.clear();

    for (const auto& line : sortSummary(result, lastPathComponent(scope_.destination))) {
        console_.line(printable(line.text), line.tone);
    }
    if (isDryRun_) console_.line("Dry run: nothing was written.");
}

}  // namespace ornivo::cli
