#pragma once

#include <filesystem>
#include <optional>

#include "platform/Bitmap.h"

namespace ornivo {

/// The picture of a camera's RAW file, upright and in sRGB, its longer side at most `maxDimension`
/// pixels; never enlarged. It is one that the camera itself developed and put into the file: the
/// smallest that is large enough, else the largest of at least 640 pixels. Of a file without such a
/// picture the sensor's data are developed.
///
/// Absent when the file is none of a camera's, or its sensor's data can't be developed rightly. May
/// be called from any thread.
std::optional<Bitmap> decodeRawPicture(const std::filesystem::path& file, int maxDimension);

}  // namespace ornivo
