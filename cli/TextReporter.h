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
    void tellTotals(const RunEnd& end) override;

protected:
    Console& console() { return console_; }
    const RunScope& scope() const { return scope_; }

private:
    template <typename Result>
    void tell(Result result);

    Console& console_;
    const RunScope& scope_;
    bool isDryRun_ = false;
};

}  // namespace ornivo::cli
