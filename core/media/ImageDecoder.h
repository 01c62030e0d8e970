#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "media/PhotoMetadata.h"
#include "platform/Bitmap.h"
#include "platform/ImageProperties.h"

/// Turns an image file into a bitmap small enough for the classifier, with the facts about the
/// shot. All operations may be called from any thread.
namespace ornivo::ImageDecoder {

struct DecodedImage {
    Bitmap image;
    PhotoMetadata metadata;
};

struct OrientedBitmap {
    Bitmap image;
    /// The EXIF value 1 to 8: how the bitmap must be turned to stand upright.
    std::uint32_t orientation;
};

/// The file's first image, its longer side at most `maxDimension` pixels, never enlarged; absent
/// when the file cannot be decoded. A camera's RAW file, known by its extension alone, comes
/// upright; any other picture comes as it is stored, with the orientation that the file tells.
///
/// With `measureQuality` the technical quality is measured as well: of a RAW file on the reduced
/// picture, of any other on the picture at its full size, which costs a full decode.
std::optional<DecodedImage> decode(const std::filesystem::path& file, int maxDimension,
                                   bool measureQuality);

/// The bitmap and the orientation alone, as `decode` gives them.
std::optional<OrientedBitmap> decodeCGImage(const std::filesystem::path& file, int maxDimension);

/// The properties of the file's first image, read from its headers; absent when the file is no
/// image or cannot be read.
std::optional<ImageProperties> properties(const std::filesystem::path& file);

}  // namespace ornivo::ImageDecoder
