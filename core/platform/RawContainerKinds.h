#pragma once

#include <optional>

#include "platform/ByteSource.h"
#include "platform/RawContainer.h"
#include "platform/TiffStructure.h"

/// The readers behind `readRawContainer` and what they share; nothing else includes this.
namespace ornivo {

/// Absent when the file is no CR3.
std::optional<RawContainer> readCr3(const ByteSource& source);

/// Absent when the file is not built like TIFF, or shows no sign of a sensor's data.
std::optional<RawContainer> readRawTiff(const ByteSource& source);

/// Adds the JPEG at `wanted.range` if one is there that isn't known yet. The rest of `wanted` holds
/// for it where it doesn't say otherwise itself.
void offerPicture(const ByteSource& source, EmbeddedJpeg wanted, RawContainer& container);

/// Takes what the notes of a maker tell: pictures and colours. `exif` is the directory with the
/// notes.
void takeMakerNote(const ByteSource& source, const TiffStructure& structure,
                   const TiffEntries& exif, RawContainer& container);

/// The same for Canon's notes once they are found, which CR3 keeps elsewhere.
void takeCanonNote(const TiffStructure& note, const TiffEntries& entries, RawContainer& container);

}  // namespace ornivo
