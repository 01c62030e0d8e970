#pragma once

#include "cli/Console.h"
#include "cli/ExitCode.h"
#include "cli/RunRequest.h"

namespace ornivo::cli {

/// Does what was asked of `sort` or `find`: scans the source, asks what has to be asked, and
/// conducts the run. Raises `UsageError` for folders that can't be used.
ExitCode runOverFolder(const RunRequest& request, Console& console);

}  // namespace ornivo::cli
