#include "support/Exif.h"

#include <cmath>
#include <vector>

namespace ornivo::testing {
namespace {

std::vector<TiffDirectory::Rational> degreesMinutesSeconds(double degrees) {
    constexpr std::uint32_t parts = 10000;
    const double magnitude = std::abs(degrees);
    const double whole = std::floor(magnitude);
    const double minutes = std::floor((magnitude - whole) * 60);
    const double seconds = (magnitude - whole - minutes / 60) * 3600;
    return {{static_cast<std::uint32_t>(whole), 1},
            {static_cast<std::uint32_t>(minutes), 1},
            {static_cast<std::uint32_t>(std::lround(seconds * parts)), parts}};
}

TiffDirectory gpsDirectory(double latitude, double longitude) {
    TiffDirectory gps;
    gps.ascii(tag::gpsLatitudeRef, latitude < 0 ? "S" : "N");
    gps.rationals(tag::gpsLatitude, degreesMinutesSeconds(latitude));
    gps.ascii(tag::gpsLongitudeRef, longitude < 0 ? "W" : "E");
    gps.rationals(tag::gpsLongitude, degreesMinutesSeconds(longitude));
    return gps;
}

}  // namespace

TiffDirectory Exif::directory() const {
    TiffDirectory photo;
    if (iso) photo.shorts(tag::isoSpeedRatings, {*iso});
    if (dateTimeOriginal) photo.ascii(tag::dateTimeOriginal, *dateTimeOriginal);
    TiffDirectory first;
    if (orientation) first.shorts(tag::orientation, {*orientation});
    if (dateTime) first.ascii(tag::dateTime, *dateTime);
    if (!photo.isEmpty()) first.directory(tag::exifDirectory, photo);
    if (position) {
        first.directory(tag::gpsDirectory, gpsDirectory(position->first, position->second));
    }
    return first;
}

}  // namespace ornivo::testing
