#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/Plan.h"

namespace ornivo::cli {

/// A plan in words, line by line, with the paths below the two folders shortened to what lies
/// below them.
std::vector<std::string> planText(const Plan& plan, const std::filesystem::path& source,
                                  const std::filesystem::path& destination);

}  // namespace ornivo::cli
