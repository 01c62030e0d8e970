#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "platform/Bitmap.h"
#include "support/Exif.h"
#include "support/TiffDirectory.h"

/// Small real picture files. Every `write…` makes the folders above the file and answers its path.
namespace ornivo::testing {

struct Colour {
    std::uint8_t red = 128;
    std::uint8_t green = 128;
    std::uint8_t blue = 128;

    bool operator==(const Colour&) const = default;
};

Bitmap filled(int width, int height, Colour colour = {});

/// A bitmap of what `colourAt(x, y)` answers.
Bitmap painted(int width, int height, const std::function<Colour(int, int)>& colourAt);

/// A picture whose quarters differ, so that it tells how it was turned: top left red, top right
/// green, bottom left blue, bottom right white.
Bitmap quarters(int width, int height);

/// The same colours as `quarters` has in sRGB, in the numbers of Adobe RGB.
Bitmap quartersInAdobeRGB(int width, int height);

/// Whether two colours differ by at most `tolerance` in each channel.
bool isNear(Colour a, Colour b, int tolerance);

std::ostream& operator<<(std::ostream& out, Colour colour);

/// The pixel at a place.
Colour at(const Bitmap& bitmap, int x, int y);

/// `displayP3` holds the same colours under a colour profile of its own; `asPreview` is compressed
/// as cameras compress what they put into RAW files.
enum class JpegKind { colour, progressive, grey, cmyk, displayP3, asPreview };

struct JpegOptions {
    Exif exif = {};
    JpegKind kind = JpegKind::colour;
    /// For a picture of one colour.
    Colour colour = {};
};

/// The bytes of a JPEG.
std::string jpegOf(const Bitmap& bitmap, const JpegOptions& options = {});

/// A JPEG of one colour.
std::filesystem::path writeJpeg(const std::filesystem::path& path, int width, int height,
                                const JpegOptions& options = {});

std::filesystem::path writeJpeg(const std::filesystem::path& path, const Bitmap& bitmap,
                                const JpegOptions& options = {});

/// A JPEG whose metadata is put together by hand.
std::filesystem::path writeJpegWithTags(const std::filesystem::path& path, int width, int height,
                                        const TiffDirectory& tags);

enum class PngKind { eightBit, sixteenBit, palette, halfTransparent };

std::filesystem::path writePng(const std::filesystem::path& path, const Bitmap& bitmap,
                               PngKind kind = PngKind::eightBit);

enum class TiffKind { eightBit, sixteenBit };

std::filesystem::path writeTiff(const std::filesystem::path& path, const Bitmap& bitmap,
                                TiffKind kind = TiffKind::eightBit);

std::filesystem::path writeWebp(const std::filesystem::path& path, const Bitmap& bitmap);

/// A TIFF that keeps red, green and blue in tiles of their own.
std::filesystem::path writeTiffInPlanes(const std::filesystem::path& path, const Bitmap& bitmap,
                                        std::uint16_t orientation = 1);

std::filesystem::path writeHeic(const std::filesystem::path& path, const Bitmap& bitmap);

/// Whether this machine's HEIC library can write as well as read.
bool canWriteHeic();

struct DngOptions {
    /// What the camera wrote beside the sensor's data.
    Exif exif = {};
    /// The share of the sensor's data that is there; less than 1 is a transfer that broke off.
    double dataKept = 1;
    /// Without its colours a developer can only guess what the camera saw.
    bool tellsColours = true;
    /// Maker and model of a file that is no DNG but a camera's own, of which a developer has to
    /// know everything else.
    std::optional<std::pair<std::string, std::string>> camera = {};
};

/// A camera's RAW file that develops: the bitmap, as seen through a Bayer filter, as 16-bit linear
/// sensor data. Both sides of the bitmap are even.
std::filesystem::path writeDng(const std::filesystem::path& path, const Bitmap& bitmap,
                               const DngOptions& options = {});

}  // namespace ornivo::testing
