#include "engine/Numbers.h"

#include <array>
#include <charconv>

namespace ornivo {
namespace {

/// Room for the longest text that a double has with four places.
constexpr std::size_t longestText = 330;

}  // namespace

std::string paddedText(int number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string fourPlaces(double number) {
    std::array<char, longestText> text{};
    const auto end = std::to_chars(text.begin(), text.end(), number, std::chars_format::fixed, 4);
    return {text.begin(), end.ptr};
}

std::string shortestText(double number) {
    std::array<char, longestText> text{};
    const auto end = std::to_chars(text.begin(), text.end(), number);
    return {text.begin(), end.ptr};
}

}  // namespace ornivo
