#pragma once

#include <cstddef>

#include "cli/Console.h"
#include "cli/RunReporter.h"
#include "cli/RunScope.h"

namespace ornivo::cli {

/// Tells of a run one JSON object a line, as `EventJson.h` gives them; the totals come last.
class JsonReporter : public RunReporter {
public:
    /// Both must outlive the reporter.
    JsonReporter(Console& console, const RunScope& scope);

    void take(const SortEngine::Event& event) override;
    void stopping() override {}
    void tick() override {}
    void tellPlan(const Plan& plan) override;
    void tellTotals(const RunEnd& end) override;

private:
    Console& console_;
    const RunScope& scope_;
    std::size_t index_ = 0;
};

}  // namespace ornivo::cli
