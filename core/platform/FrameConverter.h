#pragma once

#include <optional>

#include "platform/Bitmap.h"

struct AVFrame;

namespace ornivo {

/// A decoded frame of a video in sRGB, as it is stored, scaled in the same step so that its longer
/// side has at most `maxDimension` pixels and never enlarged for that. `pixelAspect` is the width
/// of a pixel over its height, and it is levelled out.
///
/// The frame's own colour matrix and range are honoured; where it names none, those usual for its
/// size are taken. High dynamic range is brought to the range of an ordinary screen.
///
/// Absent when the pixels come in a form that cannot be converted.
std::optional<Bitmap> bitmapOf(const AVFrame& frame, double pixelAspect, int maxDimension);

}  // namespace ornivo
