#pragma once

#include <cstdint>

#include "platform/Bitmap.h"

namespace ornivo {

struct PixelSize {
    int width;
    int height;

    bool operator==(const PixelSize&) const = default;
};

/// The size with both sides multiplied by the same factor, so that the longer has at most
/// `maxDimension` pixels: rounded half away from zero, at least 1, and never enlarged.
PixelSize reducedSize(PixelSize size, int maxDimension);

/// The bitmap at its `reducedSize`; the same pixels when it has that size already. A bitmap that
/// cannot be reduced comes as it is.
Bitmap downsampled(const Bitmap& bitmap, int maxDimension);

/// The bitmap scaled to the given size in pixels with a Lanczos filter, or a bicubic one where it
/// grows; the same pixels when it has that size already. Raises `Error` when memory runs out.
Bitmap scaled(const Bitmap& bitmap, int width, int height);

/// A part from the middle, no larger than the bitmap; the same pixels when it is the whole.
Bitmap centrePart(const Bitmap& bitmap, PixelSize size);

/// The square of the shorter side from the middle.
Bitmap centreSquare(const Bitmap& bitmap);

/// The bitmap turned and mirrored so that it stands upright. `orientation` is the EXIF value 1 to
/// 8; 1, and a value that is none of these, leaves it as it is.
Bitmap upright(const Bitmap& bitmap, std::uint32_t orientation);

}  // namespace ornivo
