#include "platform/BitmapTransforms.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/Error.h"
#include "platform/VipsImages.h"

namespace ornivo {
namespace {

/// Where an upright picture finds its pixels in the stored one.
struct Turn {
    /// The upright picture's columns are the stored one's rows.
    bool swapsSides;
    /// Stored columns, stored rows, are counted from the far end.
    bool mirrorsColumns;
    bool mirrorsRows;
};

/// By EXIF orientation, from 1.
constexpr std::array<Turn, 8> turns{{{false, false, false},
                                     {false, true, false},
                                     {false, true, true},
                                     {false, false, true},
                                     {true, false, false},
                                     {true, false, true},
                                     {true, true, true},
                                     {true, true, false}}};

int reducedSide(int side, double scale) {
    return std::max(static_cast<int>(std::lround(side * scale)), 1);
}

/// The bitmap of the given size whose pixel (x, y) is `source`'s at (column(x, y), row(x, y)).
template <typename Column, typename Row>
Bitmap rearranged(const Bitmap& source, PixelSize size, Column column, Row row) {
    std::vector<std::uint8_t> pixels;
    pixels.reserve(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) *
                   Bitmap::channels);
    const auto stored = source.pixels();
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            const auto index =
                static_cast<std::size_t>(row(x, y)) * static_cast<std::size_t>(source.width()) +
                static_cast<std::size_t>(column(x, y));
            const auto pixel = stored.subspan(index * Bitmap::channels, Bitmap::channels);
            pixels.insert(pixels.end(), pixel.begin(), pixel.end());
        }
    }
    return {size.width, size.height, std::move(pixels)};
}

}  // namespace

PixelSize reducedSize(PixelSize size, int maxDimension) {
    const double limit = std::max(maxDimension, 1);
    const double scale = std::min({limit / size.width, limit / size.height, 1.0});
    return {reducedSide(size.width, scale), reducedSide(size.height, scale)};
}

Bitmap downsampled(const Bitmap& bitmap, int maxDimension) {
    const PixelSize size = reducedSize({bitmap.width(), bitmap.height()}, maxDimension);
    try {
        return scaled(bitmap, size.width, size.height);
    } catch (const Error&) {
        return bitmap;
    }
}

Bitmap scaled(const Bitmap& bitmap, int width, int height) {
    if (bitmap.width() == width && bitmap.height() == height) return bitmap;
    auto result = rendered(resized(overPixelsOf(bitmap), {width, height}));
    if (!result) throw Error::posix(ENOMEM, "A picture couldn't be scaled");
    return *std::move(result);
}

Bitmap centrePart(const Bitmap& bitmap, PixelSize size) {
    if (size == PixelSize{bitmap.width(), bitmap.height()}) return bitmap;
    const int left = (bitmap.width() - size.width) / 2;
    const int top = (bitmap.height() - size.height) / 2;
    return rearranged(
        bitmap, size, [left](int x, int) { return left + x; },
        [top](int, int y) { return top + y; });
}

Bitmap centreSquare(const Bitmap& bitmap) {
    const int side = std::min(bitmap.width(), bitmap.height());
    return centrePart(bitmap, {side, side});
}

Bitmap upright(const Bitmap& bitmap, std::uint32_t orientation) {
    if (orientation <= 1 || orientation > turns.size()) return bitmap;
    const Turn turn = turns[orientation - 1];
    const int width = bitmap.width();
    const int height = bitmap.height();
    const PixelSize size = turn.swapsSides ? PixelSize{height, width} : PixelSize{width, height};
    const auto column = [=](int x, int y) {
        const int along = turn.swapsSides ? y : x;
        return turn.mirrorsColumns ? width - 1 - along : along;
    };
    const auto row = [=](int x, int y) {
        const int along = turn.swapsSides ? x : y;
        return turn.mirrorsRows ? height - 1 - along : along;
    };
    return rearranged(bitmap, size, column, row);
}

}  // namespace ornivo
