#pragma once

#include "vocabulary/StopReason.h"

namespace ornivo::cli {

/// What the program tells the shell as it ends.
enum class ExitCode {
    done = 0,
    someFailed = 1,
    wrongUsage = 2,
    stopped = 3,
    diskFull = 4,
};

/// The code for a run that ended for `reason` with so many shots failed. How a run ended counts
/// before what failed in it.
ExitCode exitCodeOfRun(const StopReason& reason, int errors);

}  // namespace ornivo::cli
