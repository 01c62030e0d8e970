#pragma once

#include <filesystem>
#include <optional>

#include "platform/Bitmap.h"

namespace ornivo {

/// Develops a camera's RAW file into sRGB, standing upright, with the camera's white balance and
/// brightened until its lightest parts are white. The longer side has at most `maxDimension`
/// pixels; a smaller picture is not enlarged.
///
/// Absent when the file cannot be read or developed, as when its sensor data is cut short, and when
/// the developer doesn't know its camera. May be called from any thread.
std::optional<Bitmap> developRaw(const std::filesystem::path& file, int maxDimension);

}  // namespace ornivo
