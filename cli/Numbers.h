#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Numbers as the command line reads and writes them: alike in every locale.
namespace ornivo::cli {

/// Rounded to one digit after the point, as in "59.9".
std::string withOneDecimal(double value);

/// A probability as a whole percentage, halves rounded up, as in "93%".
std::string percentage(double probability);

/// A position in degrees with two digits after the point, as in "-33.90".
std::string degreesText(double degrees);

/// A count with what is counted, as in "1 file" and "3 files".
std::string counted(std::size_t count, const std::string& one, const std::string& several);

/// A number in any form that has digits, as in "1e-05"; absent unless the whole text is one.
std::optional<double> parseNumber(std::string_view text);

/// A plain decimal number such as "-0.12"; absent unless the whole text is one.
std::optional<double> parseDecimal(std::string_view text);

/// A whole number; absent unless the whole text is one.
std::optional<int> parseWhole(std::string_view text);

}  // namespace ornivo::cli
