#include "media/RawFraming.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace ornivo::RawFraming {
namespace {

/// Previews are rounded to whole blocks, and a sensor has a margin around its picture: their
/// aspects differ by up to 3 %. The nearest two that cameras offer, 5:4 and 4:3, differ by 6.7 %.
constexpr double tolerance = 0.04;

int longerSide(PixelSize size) {
    return std::max(size.width, size.height);
}

double aspectOf(PixelSize size) {
    return static_cast<double>(size.width) / size.height;
}

PixelSize across(PixelSize size) {
    return {size.height, size.width};
}

bool swapsSides(std::uint32_t orientation) {
    return orientation >= 5;
}

bool haveSameAspect(PixelSize a, PixelSize b) {
    const double ratio = aspectOf(a) / aspectOf(b);
    return ratio < 1 + tolerance && ratio > 1 / (1 + tolerance);
}

/// The largest part of a size that has another's aspect.
PixelSize partWithAspect(PixelSize size, PixelSize other) {
    const double aspect = aspectOf(other);
    if (aspectOf(size) > aspect) {
        return {std::max(static_cast<int>(std::lround(size.height * aspect)), 1), size.height};
    }
    return {size.width, std::max(static_cast<int>(std::lround(size.width / aspect)), 1)};
}

/// The ways in which a picture may show one of the shapes: not turned, or turned by the camera.
std::vector<Framing> framingsOf(PixelSize size, PixelSize stored, std::uint32_t orientation) {
    std::vector<Framing> ways{{stored, orientation}};
    if (swapsSides(orientation)) ways.push_back({across(stored), 1});
    const auto fits = [size](const Framing& way) { return haveSameAspect(size, way.kept); };
    std::stable_partition(ways.begin(), ways.end(), fits);
    for (Framing& way : ways) way.kept = fits(way) ? size : partWithAspect(size, way.kept);
    return ways;
}

/// The aspect is all that is known of a picture without a shape: sensors lie.
Framing framingWithoutShape(PixelSize size, std::uint32_t orientation) {
    const bool isTurned = swapsSides(orientation) && size.height > size.width;
    return {size, isTurned ? 1 : orientation};
}

bool isBlack(const Bitmap& bitmap, int x, int y) {
    constexpr std::uint8_t darkest = 32;
    const auto index = static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width()) +
                       static_cast<std::size_t>(x);
    const auto pixel = bitmap.pixels().subspan(index * Bitmap::channels, Bitmap::channels);
    return std::ranges::all_of(pixel, [](std::uint8_t value) { return value <= darkest; });
}

}  // namespace

std::vector<std::size_t> orderOfUse(std::span<const PixelSize> sizes, int maxDimension) {
    constexpr int leastUseful = 640;
    const auto sideOf = [&](std::size_t index) { return longerSide(sizes[index]); };
    const auto suffices = [&](std::size_t index) { return sideOf(index) >= maxDimension; };
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        if (suffices(i) || sideOf(i) >= leastUseful) order.push_back(i);
    }
    const auto tooSmall = std::stable_partition(order.begin(), order.end(), suffices);
    std::ranges::stable_sort(order.begin(), tooSmall, {}, sideOf);
    std::ranges::stable_sort(tooSmall, order.end(), std::greater<>(), sideOf);
    return order;
}

std::vector<Framing> framings(PixelSize size, const Shape& shape) {
    std::vector<Framing> ways;
    for (const auto& stored : {shape.picture, shape.frame}) {
        if (!stored) continue;
        for (const Framing& way : framingsOf(size, *stored, shape.orientation)) {
            if (std::ranges::find(ways, way) == ways.end()) ways.push_back(way);
        }
    }
    if (ways.empty()) return {framingWithoutShape(size, shape.orientation)};
    return ways;
}

bool isBlackAround(const Bitmap& bitmap, PixelSize kept) {
    // A bar's edge is blurred by what lies beside it.
    constexpr int blurred = 3;
    // Some noise of the JPEG's own.
    constexpr double leastShare = 0.98;
    const int left = (bitmap.width() - kept.width) / 2 - blurred;
    const int top = (bitmap.height() - kept.height) / 2 - blurred;
    std::int64_t around = 0;
    std::int64_t black = 0;
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) {
            const bool isAround =
                x < left || x >= bitmap.width() - left || y < top || y >= bitmap.height() - top;
            if (!isAround) continue;
            ++around;
            if (isBlack(bitmap, x, y)) ++black;
        }
    }
    return around > 0 && static_cast<double>(black) >= leastShare * static_cast<double>(around);
}

}  // namespace ornivo::RawFraming
