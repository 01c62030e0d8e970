#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

#include "platform/Bitmap.h"

namespace ornivo {

struct DecodedStill {
    Bitmap bitmap;
    /// The decoder turned the pixels as the file asks (HEIC and HEIF); a file of any other format
    /// comes as it is stored.
    bool isUpright;
};

/// Decodes the first image of a JPEG, PNG, TIFF, WebP or HEIC file, told apart by their contents,
/// into sRGB; colour profiles are honoured, transparent parts are black.
///
/// With `maxDimension` the longer side has at most that many pixels: both sides are multiplied by
/// the same factor, rounded half away from zero, and are at least 1. A smaller image comes as it
/// is. Without `maxDimension` the image comes at its full size. Reducing never makes the whole
/// full-size picture in memory where the format allows to go through it in strips.
///
/// Absent when the file cannot be read, is of another format, is cut short, or is larger than any
/// camera makes. May be called from any thread.
std::optional<DecodedStill> decodeStill(const std::filesystem::path& file,
                                        std::optional<int> maxDimension);

/// Decodes a JPEG in memory into sRGB, reduced as `decodeStill` does and not turned. Its colours
/// are those of the profile within it, else those of `profile`, else sRGB. `profile` may be empty.
///
/// Absent when it is no JPEG, is cut short, or is larger than any camera makes.
std::optional<Bitmap> decodeJpeg(std::span<const std::uint8_t> jpeg, int maxDimension,
                                 std::span<const std::uint8_t> profile);

}  // namespace ornivo
