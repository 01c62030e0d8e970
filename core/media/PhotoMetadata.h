#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "media/PhotoQuality.h"
#include "vocabulary/PhotoLocation.h"

namespace ornivo {

/// What a decoded shot carries beside its pixels. A new record knows nothing.
struct PhotoMetadata {
    /// The EXIF value 1 to 8: how the bitmap must be turned to stand upright; 1 is upright.
    std::uint32_t orientation = 1;
    std::optional<PhotoLocation> location;
    /// The capture day, "yyyy-MM-dd".
    std::optional<std::string> captureDate;
    /// The capture instant in whole seconds on the camera's own clock, fit for differences.
    std::optional<std::int64_t> captureSecond;
    /// Absent unless asked for.
    std::optional<PhotoQuality> quality;

    bool operator==(const PhotoMetadata&) const = default;
};

}  // namespace ornivo
