#pragma once

#include <filesystem>

#include "cli/Console.h"
#include "cli/ExitCode.h"

namespace ornivo::cli {

/// Says why there is no run to go on with in a destination: that there is no record, or that the
/// one there can't be used.
ExitCode tellMissingRecord(const std::filesystem::path& destination, Console& console);

}  // namespace ornivo::cli
