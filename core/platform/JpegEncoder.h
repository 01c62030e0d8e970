#pragma once

#include <optional>
#include <string>

#include "platform/Bitmap.h"

namespace ornivo {

/// The bitmap as a JPEG file without metadata, whose colours a reader takes for sRGB. `quality` is
/// libjpeg's, from 1 to 100. Absent when there is no memory for it. May be called from any thread.
std::optional<std::string> jpegOf(const Bitmap& bitmap, int quality);

}  // namespace ornivo
