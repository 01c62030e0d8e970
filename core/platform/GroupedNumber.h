#pragma once

#include <cstdint>
#include <string>

namespace ornivo {

/// A whole number with its digits grouped as a locale does it ("5,060" in "en_GB", "5.060" in
/// "de_DE"); without one, as the user's locale does.
std::string groupedNumber(std::int64_t number, const std::string& locale = {});

}  // namespace ornivo
