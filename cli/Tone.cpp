#include "cli/Tone.h"

#include <array>
#include <cstddef>

namespace ornivo::cli {

namespace {

constexpr std::string_view reset = "\x1b[0m";

// In the order of `Tone`.
constexpr std::array<std::string_view, 5> colours{"", "\x1b[32m", "\x1b[2m", "\x1b[33m",
                                                  "\x1b[31m"};

}  // namespace

std::string coloured(std::string_view text, Tone tone) {
    if (tone == Tone::plain) return std::string(text);
    std::string result(colours.at(static_cast<std::size_t>(tone)));
    return result.append(text).append(reset);
}

}  // namespace ornivo::cli
