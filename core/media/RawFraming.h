#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/BitmapTransforms.h"

/// Which of the pictures that a camera put into a RAW file stands for it, and how it has to be
/// laid so that it shows what the sensor saw, upright.
namespace ornivo::RawFraming {

/// What the RAW file says of its picture.
struct Shape {
    /// How the sensor's picture must be turned to stand upright, 1 to 8.
    std::uint32_t orientation = 1;
    /// Sizes before turning, of which only the aspect matters here: as the camera would have
    /// developed it, and as the sensor took it.
    std::optional<PixelSize> picture = {};
    std::optional<PixelSize> frame = {};
};

/// One way to understand an embedded picture.
struct Framing {
    /// What to keep from its middle.
    PixelSize kept;
    /// How the kept part must be turned, 1 to 8.
    std::uint32_t orientation;

    bool operator==(const Framing&) const = default;
};

/// The order in which pictures of these sizes are to be tried, as indices: the smallest whose
/// longer side has at least `maxDimension` pixels first, then larger ones; after these the largest
/// of the others that has at least 640. Smaller ones don't serve.
std::vector<std::size_t> orderOfUse(std::span<const PixelSize> sizes, int maxDimension);

/// The ways to understand a picture of a size, the likeliest first. One that keeps the whole has
/// the shape that the RAW file tells; of one that keeps a part, the rest must prove to be bars. A
/// picture that stands across the sensor's has been turned by the camera already.
std::vector<Framing> framings(PixelSize size, const Shape& shape);

/// Whether everything around the part of a size from the middle is black, as bars are that a
/// camera adds to reach another aspect.
bool isBlackAround(const Bitmap& bitmap, PixelSize kept);

}  // namespace ornivo::RawFraming
