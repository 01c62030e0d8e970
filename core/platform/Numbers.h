#pragma once

#include <cstddef>
#include <string>

/// Numbers as text, the same in every locale.
namespace ornivo {

/// A number that is not negative, filled up with zeros to a number of digits: 7 with 3 gives "007".
std::string paddedText(int number, std::size_t digits);

/// Rounded to a few places after the point, ten at most: -33.899 with 2 gives "-33.90".
std::string fixedText(double number, int places);

/// Rounded to four places: 0.5 gives "0.5000".
std::string fourPlaces(double number);

/// The shortest text that reads back as the same number.
std::string shortestText(double number);

}  // namespace ornivo
