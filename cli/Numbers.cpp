#include "cli/Numbers.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "platform/Numbers.h"

namespace ornivo::cli {

namespace {

template <typename Number, typename... Form>
std::optional<Number> parse(std::string_view text, Form... form) {
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, value, form...);
    if (failure != std::errc{} || stop != end) return std::nullopt;
    return value;
}

}  // namespace

std::string withOneDecimal(double value) {
    return fixedText(value, 1);
}

std::string degreesText(double degrees) {
    return fixedText(degrees, 2);
}

std::string percentage(double probability) {
    return std::to_string(std::lround(probability * 100)) + "%";
}

std::string counted(std::size_t count, const std::string& one, const std::string& several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

std::optional<double> parseNumber(std::string_view text) {
    return parse<double>(text, std::chars_format::general);
}

std::optional<double> parseDecimal(std::string_view text) {
    return parse<double>(text, std::chars_format::fixed);
}

std::optional<int> parseWhole(std::string_view text) {
    return parse<int>(text);
}

}  // namespace ornivo::cli
