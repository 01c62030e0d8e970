#include "cli/TextReporter.h"

#include <variant>

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

void TextReporter::tellTotals(const RunEnd& end) {
    std::visit([this](const auto& finished) { tell(finished.result); }, end);
    if (scope_.earlier) {
        console_.line(earlierSummary(scope_.mode, *scope_.earlier), Tone::subdued);
    }
    if (isDryRun_) console_.line("Dry run: nothing was written.");
}

template <typename Result>
void TextReporter::tell(Result result) {
    for (const auto& warning : result.warnings) console_.note(printable(warning), Tone::warning);
    // On one screen all of the warnings stand right above.
    if (console_.bothAreTerminals()) result.warnings.clear();

    for (const auto& line : summary(result, lastPathComponent(scope_.destination))) {
        console_.line(printable(line.text), line.tone);
    }
}

}  // namespace ornivo::cli
