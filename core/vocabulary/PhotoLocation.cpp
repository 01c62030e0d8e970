#include "vocabulary/PhotoLocation.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/Text.h"

namespace ornivo {
namespace {

/// A magnitude under `key`; absent unless it is a number.
std::optional<double> magnitude(const ImageProperties& gps, const char* key) {
    const auto found = gps.find(key);
    if (found == gps.end() || !found->is_number()) return std::nullopt;
    return found->get<double>();
}

/// -1 when the reference under `key` is `negative` in either case, otherwise 1.
double sign(const ImageProperties& gps, const char* key, const std::string& negative) {
    const auto found = gps.find(key);
    const bool isNegative = found != gps.end() && found->is_string() &&
                            equalIgnoringCase(found->get_ref<const std::string&>(), negative);
    return isNegative ? -1.0 : 1.0;
}

}  // namespace

std::optional<PhotoLocation> PhotoLocation::make(double latitude, double longitude) {
    if (!std::isfinite(latitude) || !std::isfinite(longitude)) return std::nullopt;
    if (std::abs(latitude) > 90 || std::abs(longitude) > 180) return std::nullopt;
    return PhotoLocation(latitude, longitude);
}

std::optional<PhotoLocation> PhotoLocation::fromProperties(const ImageProperties& properties) {
    const auto gps = properties.find(property::gpsGroup);
    if (gps == properties.end() || !gps->is_object()) return std::nullopt;
    return fromGPSDictionary(*gps);
}

std::optional<PhotoLocation> PhotoLocation::fromGPSDictionary(const ImageProperties& gps) {
    const auto latitude = magnitude(gps, property::gpsLatitude);
    const auto longitude = magnitude(gps, property::gpsLongitude);
    if (!latitude || !longitude) return std::nullopt;
    return make(*latitude * sign(gps, property::gpsLatitudeRef, "S"),
                *longitude * sign(gps, property::gpsLongitudeRef, "W"));
}

std::optional<PhotoLocation> PhotoLocation::fromEXIF(const std::filesystem::path& file) {
    const auto properties = readImageProperties(file);
    return properties ? fromProperties(*properties) : std::nullopt;
}

}  // namespace ornivo
