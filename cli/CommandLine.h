#pragma once

#include "cli/Console.h"
#include "cli/ExitCode.h"

namespace ornivo::cli {

/// Does what the command line says and answers how it went. Raises nothing.
ExitCode runCommandLine(int argc, const char* const* argv, Console& console);

}  // namespace ornivo::cli
