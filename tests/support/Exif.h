#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "support/TiffDirectory.h"

namespace ornivo::testing {

/// What a picture's metadata says; nothing of what is left out.
struct Exif {
    std::optional<std::uint16_t> orientation = {};
    /// "YYYY:MM:DD HH:MM:SS", in the EXIF group.
    std::optional<std::string> dateTimeOriginal = {};
    /// The same form, in the TIFF group.
    std::optional<std::string> dateTime = {};
    /// Signed degrees: latitude, longitude.
    std::optional<std::pair<double, double>> position = {};
    std::optional<std::uint16_t> iso = {};

    /// The metadata as tags of a file's first directory.
    TiffDirectory directory() const;
};

/// Tags for metadata that is put together by hand.
namespace tag {
inline constexpr std::uint16_t orientation = 274;
inline constexpr std::uint16_t dateTime = 306;
inline constexpr std::uint16_t exifDirectory = 34665;
inline constexpr std::uint16_t gpsDirectory = 34853;
inline constexpr std::uint16_t isoSpeedRatings = 34855;
inline constexpr std::uint16_t dateTimeOriginal = 36867;
inline constexpr std::uint16_t gpsLatitudeRef = 1;
inline constexpr std::uint16_t gpsLatitude = 2;
inline constexpr std::uint16_t gpsLongitudeRef = 3;
inline constexpr std::uint16_t gpsLongitude = 4;
}  // namespace tag

}  // namespace ornivo::testing
