#pragma once

#include <cstdint>
#include <optional>

#include "platform/BitmapTransforms.h"
#include "platform/ByteSource.h"
#include "platform/ColourSpace.h"

namespace ornivo {

/// A JPEG inside a larger file, as its header describes it.
struct EmbeddedJpeg {
    ByteRange range;
    PixelSize size;
    /// What its own metadata says; `unknown` when it says nothing. A profile in it stands above.
    ColourSpace colours = ColourSpace::unknown;
    /// What its own metadata says, 1 to 8; 0 when it says nothing.
    std::uint32_t orientation = 0;
    /// A profile for it that stands elsewhere in the file; empty when there is none.
    ByteRange profile = {};
};

/// Reads the header of the JPEG that fills a range. Absent when there is none, when the range is
/// not all there, and for kinds that hold a sensor's data instead of a picture. Reads markers and
/// the picture's few metadata only, and believes no length.
std::optional<EmbeddedJpeg> readEmbeddedJpeg(const ByteSource& source, ByteRange range);

}  // namespace ornivo
