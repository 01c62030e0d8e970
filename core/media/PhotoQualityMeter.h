#pragma once

#include <optional>

#include "media/PhotoQuality.h"
#include "platform/Bitmap.h"
#include "platform/ImageProperties.h"

/// Takes a technical reading of a photograph on a grid of small tiles, so that the cost does not
/// grow with its resolution.
namespace ornivo::PhotoQualityMeter {

/// Never fails: what cannot be measured, as in a picture with a side below 8 pixels, reads 0, and
/// an ISO that the properties do not tell is absent.
PhotoQuality measure(const Bitmap& image, const std::optional<ImageProperties>& properties);

}  // namespace ornivo::PhotoQualityMeter
