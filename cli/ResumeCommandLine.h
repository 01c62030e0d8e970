#pragma once

#include <string>
#include <string_view>

#include "cli/RunScope.h"

namespace ornivo::cli {

/// The text as one word of a shell's command line, in quotation marks where it needs them.
std::string shellWord(std::string_view text);

/// What to type to go on with a run that its record in the destination tells of.
std::string resumeCommandLine(const RunScope& scope);

}  // namespace ornivo::cli
