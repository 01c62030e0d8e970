#pragma once

#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <optional>

namespace ornivo {

/// What a file says of its first image, as a JSON object. Groups are objects under their names
/// below; a value is text, a number, or a list of numbers. The keys in the groups are the standard
/// tag names without a group's prefix, so the tag GPSLatitudeRef is "LatitudeRef" in the GPS
/// group. Positions are degrees, whatever parts the file holds them in.
using ImageProperties = nlohmann::json;

namespace property {
inline constexpr const char* orientation = "Orientation";
inline constexpr const char* exifGroup = "{Exif}";
inline constexpr const char* tiffGroup = "{TIFF}";
inline constexpr const char* gpsGroup = "{GPS}";
inline constexpr const char* exifDateTimeOriginal = "DateTimeOriginal";
inline constexpr const char* exifIsoSpeedRatings = "ISOSpeedRatings";
inline constexpr const char* tiffDateTime = "DateTime";
inline constexpr const char* gpsLatitude = "Latitude";
inline constexpr const char* gpsLatitudeRef = "LatitudeRef";
inline constexpr const char* gpsLongitude = "Longitude";
inline constexpr const char* gpsLongitudeRef = "LongitudeRef";
}  // namespace property

/// The properties of an image file, RAW files included, read from its headers alone. Absent when
/// the file is no image or cannot be read; an image without metadata has an empty object. May be
/// called from any thread.
std::optional<ImageProperties> readImageProperties(const std::filesystem::path& file);

}  // namespace ornivo
