#include "platform/Numbers.h"

#include <array>
#include <charconv>

namespace ornivo {
namespace {

/// Room for the longest text that a double has with a few places.
constexpr std::size_t longestText = 330;

}  // namespace

std::string paddedText(int number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string fixedText(double number, int places) {
    std::array<char, longestText> text{};
    const auto end =
        std::to_chars(text.begin(), text.end(), number, std::chars_format::fixed, places);
    return {text.begin(), end.ptr};
}

std::string fourPlaces(double number) {
    return fixedText(number, 4);
}

std::string shortestText(double number) {
    std::array<char, longestText> text{};
    const auto end = std::to_chars(text.begin(), text.end(), number);
    return {text.begin(), end.ptr};
}

}  // namespace ornivo
