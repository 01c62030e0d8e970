#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

constexpr int whiteLevel = 60000;

/// A channel's light in sensor units, from its sRGB value.
std::uint16_t sensorValue(std::uint8_t channel) {
    const double encoded = channel / 255.0;
    const double linear =
        encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
    return static_cast<std::uint16_t>(std::lround(linear * whiteLevel));
}

/// The colour that the filter over a sensor's pixel lets through: red and green in even rows,
/// green and blue in odd ones.
std::uint8_t filtered(const Colour& colour, int x, int y) {
    if (x % 2 != y % 2) return colour.green;
    return y % 2 == 0 ? colour.red : colour.blue;
}

std::string mosaic(const Bitmap& bitmap) {
    std::string data;
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) {
            const std::uint16_t value = sensorValue(filtered(at(bitmap, x, y), x, y));
            data.push_back(static_cast<char>(value & 0xFF));
            data.push_back(static_cast<char>(value >> 8));
        }
    }
    return data;
}

/// The tags that tell a developer how to read the mosaic. The camera sees as sRGB does.
TiffDirectory sensorTags(TiffDirectory first, const Bitmap& bitmap, const DngOptions& options) {
    constexpr std::uint16_t colourFilterArray = 32803;
    constexpr std::uint16_t daylight = 21;
    first.longs(254, {0})
        .longs(256, {static_cast<std::uint32_t>(bitmap.width())})
        .longs(257, {static_cast<std::uint32_t>(bitmap.height())})
        .shorts(258, {16})
        .shorts(259, {1})
        .shorts(262, {colourFilterArray})
        .ascii(271, options.camera ? options.camera->first : "Ornivo")
        .ascii(272, options.camera ? options.camera->second : "Test Camera")
        .shorts(277, {1})
        .longs(278, {static_cast<std::uint32_t>(bitmap.height())})
        .shorts(284, {1})
        .shorts(33421, {2, 2})
        .bytes(33422, std::string("\0\1\1\2", 4));
    if (options.camera) return first;
    first.bytes(50706, std::string("\1\4\0\0", 4))
        .ascii(50708, "Ornivo Test Camera")
        .longs(50717, {whiteLevel})
        .rationals(50728, {{1, 1}, {1, 1}, {1, 1}})
        .shorts(50778, {daylight});
    if (!options.tellsColours) return first;
    return first.signedRationals(50721, {{32406, 10000},
                                         {-15372, 10000},
                                         {-4986, 10000},
                                         {-9689, 10000},
                                         {18758, 10000},
                                         {415, 10000},
                                         {557, 10000},
                                         {-2040, 10000},
                                         {10570, 10000}});
}

}  // namespace

std::filesystem::path writeDng(const std::filesystem::path& path, const Bitmap& bitmap,
                               const DngOptions& options) {
    TiffDirectory first = sensorTags(options.exif.directory(), bitmap, options);
    const std::string file = first.strip(mosaic(bitmap)).file();
    const auto missing = static_cast<std::size_t>(
        std::lround((1 - options.dataKept) * bitmap.width() * bitmap.height() * 2));
    return writeFile(path, file.substr(0, file.size() - missing));
}

}  // namespace ornivo::testing
