#pragma once

#include <string>
#include <vector>

namespace ornivo {

/// Adds texts for the user behind those that there are.
inline void append(std::vector<std::string>& warnings, const std::vector<std::string>& more) {
    warnings.insert(warnings.end(), more.begin(), more.end());
}

}  // namespace ornivo
