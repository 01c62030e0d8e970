#pragma once

#include <cstdint>
#include <string>

namespace ornivo {

/// A size in decimal units with as many digits as matter ("999 bytes", "12 kB", "3.5 MB",
/// "1.25 GB") as a locale writes it; without one, as the user's locale does.
std::string fileSizeText(std::int64_t bytes, const std::string& locale = {});

}  // namespace ornivo
