#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace ornivo {

/// The colours that a camera says a picture without a profile is in.
enum class ColourSpace { unknown, sRGB, adobeRGB, proPhoto };

/// An ICC profile of a colour space; empty for `unknown` and `sRGB`, which need none.
std::span<const std::uint8_t> profileOf(ColourSpace space);

}  // namespace ornivo
