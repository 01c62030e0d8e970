#pragma once

#include <span>

#include "platform/Bitmap.h"

namespace ornivo {

/// Prepares a picture for a neural network: the square of the shorter side from the middle, scaled
/// to side × side pixels with a Lanczos filter of three lobes. Fills `planes`, of 3 × side × side
/// numbers, with the red, the green and the blue plane; values are whole, from 0 to 255.
///
/// The filter works in floating point. Filters in small whole numbers, as image libraries prefer
/// them, change the network's first answer where two are close, and are no faster at this size.
void fillPlanes(const Bitmap& picture, int side, std::span<float> planes);

}  // namespace ornivo
