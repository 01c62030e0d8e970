#include "cli/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

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
    // Room for the longest double that there is.
    std::array<char, 320> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed, 1);
    return {buffer.data(), written.ptr};
}

std::string percentage(double probability) {
    return std::to_string(std::lround(probability * 100)) + "%";
}

std::optional<double> parseDecimal(std::string_view text) {
    return parse<double>(text, std::chars_format::fixed);
}

std::optional<int> parseWhole(std::string_view text) {
    return parse<int>(text);
}

}  // namespace ornivo::cli
