#pragma once

#include "cli/Console.h"
#include "cli/RunReporter.h"
#include "cli/RunScope.h"

namespace ornivo::cli {

/// Tells how a run ended in words, the warnings beside the output. How the run is followed while
/// it goes on is left to derived reporters.
class TextReporter : public RunReporter {
public:
    /// Both must outlive the reporter.
    TextReporter(Console& console, const RunScope& scope) : console_(console), scope_(scope) {}

    void tellPlan(const Plan& plan) override;
    void tellTotals(const SortEngine::SortFinished& finished) override;

protected:
    Console& console() { return console_; }

private:
    Console& console_;
    const RunScope& scope_;
    bool isDryRun_ = false;
};

}  // namespace ornivo::cli
