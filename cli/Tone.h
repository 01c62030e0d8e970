#pragma once

#include <string>
#include <string_view>

namespace ornivo::cli {

/// What a line means, which a terminal shows by its colour.
enum class Tone { plain, accent, subdued, warning, error };

/// The text in the terminal's colour for a tone.
std::string coloured(std::string_view text, Tone tone);

}  // namespace ornivo::cli
