#pragma once

#include <cstdint>
#include <optional>

#include "platform/BitmapTransforms.h"
#include "platform/ColourSpace.h"
#include "platform/TiffStructure.h"

namespace ornivo {

/// The little that decides how a picture is to be shown.
struct ExifFacts {
    /// 1 to 8; 0 when it isn't told.
    std::uint32_t orientation = 0;
    ColourSpace colours = ColourSpace::unknown;
    /// The size of the picture as the camera would have developed it, with the chosen aspect.
    std::optional<PixelSize> size = {};
};

/// Names of tags that several readers of this folder ask for.
namespace tiffTag {
inline constexpr std::uint16_t orientation = 0x0112;
inline constexpr std::uint16_t exif = 0x8769;
inline constexpr std::uint16_t makerNote = 0x927C;
}  // namespace tiffTag

/// The orientation among a directory's tags: 1 to 8, or 0.
std::uint32_t orientationIn(const TiffStructure& structure, const TiffEntries& directory);

/// What an EXIF directory tells of colours and size.
ExifFacts exifFactsIn(const TiffStructure& structure, const TiffEntries& exif);

/// The facts of a whole EXIF structure, as a JPEG carries it, whose header stands at `at`.
std::optional<ExifFacts> readExifFacts(const ByteSource& source, std::uint64_t at);

/// A size from two tags; absent unless both are there and make sense.
std::optional<PixelSize> sizeIn(const TiffStructure& structure, const TiffEntries& directory,
                                std::uint16_t widthTag, std::uint16_t heightTag);

}  // namespace ornivo
