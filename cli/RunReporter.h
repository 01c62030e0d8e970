#pragma once

#include "cli/Plan.h"
#include "cli/RunEnd.h"
#include "engine/SortEngine.h"

namespace ornivo::cli {

/// Tells the user of a run, from its first event to its totals. Called from one thread.
class RunReporter {
public:
    virtual ~RunReporter() = default;

    /// The next event, the last one included.
    virtual void take(const SortEngine::Event& event) = 0;
    /// The user has asked the run to stop; it is finishing a file.
    virtual void stopping() = 0;
    /// Called several times a second while the run goes on.
    virtual void tick() = 0;
    /// After the last event of a dry run: what the run would do.
    virtual void tellPlan(const Plan& plan) = 0;
    /// At the very end.
    virtual void tellTotals(const RunEnd& end) = 0;
};

}  // namespace ornivo::cli
