#pragma once

#include "cli/Console.h"
#include "cli/ExitCode.h"
#include "cli/RunManner.h"
#include "cli/RunScope.h"
#include "vocabulary/SortOptions.h"

namespace ornivo::cli {

/// Has the engine do a run, tells of it from its first event to its totals, and answers how it
/// went. After a full disk it says how to go on. A new run over no files does nothing.
ExitCode conductRun(const RunScope& scope, const SortOptions& options, const RunManner& manner,
                    Console& console);

}  // namespace ornivo::cli
