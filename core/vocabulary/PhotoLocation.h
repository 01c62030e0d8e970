#pragma once

#include <filesystem>
#include <optional>

#include "platform/ImageProperties.h"

namespace ornivo {

/// A position on the Earth in degrees: latitude -90 to 90, longitude -180 to 180.
class PhotoLocation {
public:
    /// Absent unless both numbers are finite and within bounds.
    static std::optional<PhotoLocation> make(double latitude, double longitude);

    /// The position in an image's properties; absent when they hold none that is usable.
    static std::optional<PhotoLocation> fromProperties(const ImageProperties& properties);

    /// The position in the GPS group of an image's properties: unsigned magnitudes, negated by the
    /// references "S" and "W" in either case.
    static std::optional<PhotoLocation> fromGPSDictionary(const ImageProperties& gps);

    /// The position in an image file's headers.
    static std::optional<PhotoLocation> fromEXIF(const std::filesystem::path& file);

    double latitude() const { return latitude_; }
    double longitude() const { return longitude_; }

    bool operator==(const PhotoLocation&) const = default;

private:
    PhotoLocation(double latitude, double longitude) : latitude_(latitude), longitude_(longitude) {}

    double latitude_;
    double longitude_;
};

}  // namespace ornivo
