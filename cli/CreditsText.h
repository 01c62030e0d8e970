#pragma once

#include <optional>
#include <string>
#include <vector>

#include "credits/Credits.h"

namespace ornivo::cli {

/// Whose work the program rests on, line by line: the photographs, the photographers where all are
/// known, the components and the citation. Numbers are grouped as the locale does.
std::vector<std::string> creditsText(const std::optional<Credits::Payload>& credits,
                                     const std::string& locale = {});

}  // namespace ornivo::cli
