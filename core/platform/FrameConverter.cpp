#include "platform/FrameConverter.h"

extern "C" {
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "platform/BitmapTransforms.h"
#include "platform/FFmpegHandles.h"
#include "platform/HighDynamicRange.h"

namespace ornivo {
namespace {

struct ScalerFree {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};
using Scaler = std::unique_ptr<SwsContext, ScalerFree>;

/// The picture's size on a screen with square pixels. No camera stretches its pixels by more than
/// ten; such a number is no truth about the picture.
PixelSize displaySize(const AVFrame& frame, double pixelAspect) {
    constexpr double most = 10;
    const bool isSound = pixelAspect >= 1 / most && pixelAspect <= most;
    const double width = frame.width * (isSound ? pixelAspect : 1);
    return {std::max(static_cast<int>(std::lround(width)), 1), frame.height};
}

std::optional<LightCurve> lightCurveOf(const AVFrame& frame) {
    if (frame.color_trc == AVCOL_TRC_SMPTE2084) return LightCurve::pq;
    if (frame.color_trc == AVCOL_TRC_ARIB_STD_B67) return LightCurve::hlg;
    return std::nullopt;
}

/// By the numbers that the standards share with the library. High definition has a matrix of its
/// own, and cameras that don't name theirs keep to that.
int colourMatrixOf(const AVFrame& frame) {
    constexpr int leastHighDefinition = 720;
    if (frame.colorspace != AVCOL_SPC_UNSPECIFIED) return frame.colorspace;
    if (lightCurveOf(frame)) return SWS_CS_BT2020;
    return std::min(frame.width, frame.height) >= leastHighDefinition ? SWS_CS_ITU709
                                                                      : SWS_CS_ITU601;
}

Scaler scalerFor(const AVFrame& from, PixelSize size, AVPixelFormat to) {
    const auto format = static_cast<AVPixelFormat>(from.format);
    if (sws_isSupportedInput(format) == 0) return nullptr;
    Scaler scaler(sws_getContext(from.width, from.height, format, size.width, size.height, to,
                                 SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT, nullptr,
                                 nullptr, nullptr));
    if (!scaler) return nullptr;
    int* ignored = nullptr;
    int isFullRange = 0;
    int toFullRange = 0;
    int brightness = 0;
    int contrast = 0;
    int saturation = 0;
    // Some pixel formats mean the full range by themselves; the scaler knows which.
    if (sws_getColorspaceDetails(scaler.get(), &ignored, &isFullRange, &ignored, &toFullRange,
                                 &brightness, &contrast, &saturation) < 0) {
        return scaler;
    }
    if (from.color_range == AVCOL_RANGE_JPEG) isFullRange = 1;
    sws_setColorspaceDetails(scaler.get(), sws_getCoefficients(colourMatrixOf(from)), isFullRange,
                             sws_getCoefficients(SWS_CS_DEFAULT), 1, brightness, contrast,
                             saturation);
    return scaler;
}

/// The frame's values of red, green and blue, row after row; none when it can't be converted.
template <typename Value>
std::vector<Value> scaledValues(const AVFrame& frame, PixelSize size, AVPixelFormat format) {
    const Scaler scaler = scalerFor(frame, size, format);
    const FrameHandle out = newFrame();
    out->width = size.width;
    out->height = size.height;
    out->format = format;
    if (!scaler || av_frame_get_buffer(out.get(), 0) < 0) return {};
    const int rows = sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, out->data,
                               out->linesize);
    if (rows != size.height) return {};
    const auto rowLength = static_cast<std::size_t>(size.width) * Bitmap::channels;
    std::vector<Value> values;
    values.reserve(rowLength * static_cast<std::size_t>(size.height));
    for (int y = 0; y < size.height; ++y) {
        const auto* bytes = out->data[0] + std::ptrdiff_t{y} * out->linesize[0];
        const std::span row(reinterpret_cast<const Value*>(bytes), rowLength);
        values.insert(values.end(), row.begin(), row.end());
    }
    return values;
}

}  // namespace

std::optional<Bitmap> bitmapOf(const AVFrame& frame, double pixelAspect, int maxDimension) {
    const PixelSize size = reducedSize(displaySize(frame, pixelAspect), maxDimension);
    if (const auto curve = lightCurveOf(frame)) {
        const auto values = scaledValues<std::uint16_t>(frame, size, AV_PIX_FMT_RGB48);
        return values.empty() ? std::nullopt : std::optional(toneMapped(size, values, *curve));
    }
    auto pixels = scaledValues<std::uint8_t>(frame, size, AV_PIX_FMT_RGB24);
    if (pixels.empty()) return std::nullopt;
    return Bitmap(size.width, size.height, std::move(pixels));
}

}  // namespace ornivo
