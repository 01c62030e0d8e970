#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/BitmapTransforms.h"
#include "platform/ByteSource.h"
#include "platform/ColourSpace.h"
#include "platform/EmbeddedJpeg.h"

namespace ornivo {

/// What a camera's RAW file tells, without its sensor's data.
struct RawContainer {
    /// How the sensor's picture must be turned to stand upright, 1 to 8; 0 when it isn't told.
    std::uint32_t orientation = 0;
    /// The colours of pictures in the file that don't say so themselves.
    ColourSpace colours = ColourSpace::unknown;
    /// A profile for the same pictures; empty when there is none.
    ByteRange profile = {};
    /// The picture's size as the camera would have developed it, and as its sensor took it. Both
    /// before turning. They differ in aspect where the photographer chose another.
    std::optional<PixelSize> picture = {};
    std::optional<PixelSize> frame = {};
    /// The pictures that the camera developed, in the order in which they were found.
    std::vector<EmbeddedJpeg> pictures = {};
};

/// Reads the head of a RAW file: those that are built like TIFF (NEF, ARW, CR2, ORF, RW2, DNG and
/// their like) and CR3. Absent for any other file, a plain TIFF included. Reads some kilobytes in
/// many places, whatever the file's size, and believes no offset, length or count.
std::optional<RawContainer> readRawContainer(const ByteSource& source);

}  // namespace ornivo
