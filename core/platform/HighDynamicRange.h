#pragma once

#include <cstdint>
#include <span>

#include "platform/Bitmap.h"
#include "platform/BitmapTransforms.h"

namespace ornivo {

/// How a video of high dynamic range writes light as numbers.
enum class LightCurve {
    /// Perceptual quantiser (SMPTE ST 2084): absolute light up to 10,000 candelas a square metre.
    pq,
    /// Hybrid log-gamma (ARIB STD-B67): light of the scene, for a screen of 1,000 candelas.
    hlg
};

/// Brings a picture of high dynamic range to the range of an ordinary screen. `values` holds red,
/// green and blue of each pixel in the primaries of BT.2020, written by the curve, 65,535 being
/// the greatest.
///
/// The white of paper, 203 candelas, counts as 1. What is darker than 0.6 comes through as it is;
/// above, light is pressed together towards 1, never reaching it, at the same hue. Colours that
/// sRGB can't show lose what lies outside.
Bitmap toneMapped(PixelSize size, std::span<const std::uint16_t> values, LightCurve curve);

}  // namespace ornivo
