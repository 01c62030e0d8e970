#include "platform/NetworkInput.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <vector>

namespace ornivo {
namespace {

constexpr double lobes = 3;

double sinc(double x) {
    return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

double lanczos(double x) {
    return std::abs(x) < lobes ? sinc(x) * sinc(x / lobes) : 0;
}

/// How a line of pixels becomes a shorter or longer one: pixel i of the new line is the sum of
/// `taps` pixels of the old one from `first[i]` on, each times its weight.
struct LineFilter {
    std::size_t taps;
    std::vector<std::size_t> first;
    std::vector<float> weights;
};

LineFilter makeFilter(std::size_t from, std::size_t to) {
    const double step = static_cast<double>(from) / static_cast<double>(to);
    const double stretch = std::max(step, 1.0);
    const auto reach = static_cast<std::size_t>(std::ceil(lobes * stretch));
    LineFilter filter{std::min(2 * reach, from), {}, {}};
    std::vector<double> weights(filter.taps);
    for (std::size_t i = 0; i < to; ++i) {
        const double centre = (static_cast<double>(i) + 0.5) * step - 0.5;
        const double lowest = std::floor(centre) - static_cast<double>(reach) + 1;
        const auto first =
            std::min(static_cast<std::size_t>(std::max(lowest, 0.0)), from - filter.taps);
        double sum = 0;
        for (std::size_t tap = 0; tap < filter.taps; ++tap) {
            weights[tap] = lanczos((static_cast<double>(first + tap) - centre) / stretch);
            sum += weights[tap];
        }
        filter.first.push_back(first);
        for (const double weight : weights) {
            filter.weights.push_back(static_cast<float>(weight / sum));
        }
    }
    return filter;
}

/// Red, green, blue, and one more that makes a pixel as wide as the processor's registers.
using Pixel = float __attribute__((vector_size(16)));

/// The centre square of a picture, row by row.
std::vector<Pixel> centreSquarePixels(const Bitmap& picture, std::size_t square) {
    const auto width = static_cast<std::size_t>(picture.width());
    const auto height = static_cast<std::size_t>(picture.height());
    const std::size_t left = (width - square) / 2;
    const std::size_t top = (height - square) / 2;
    std::vector<Pixel> pixels;
    pixels.reserve(square * square);
    for (std::size_t y = top; y < top + square; ++y) {
        const auto row = picture.pixels().subspan((y * width + left) * Bitmap::channels,
                                                  square * Bitmap::channels);
        for (std::size_t i = 0; i < row.size(); i += Bitmap::channels) {
            pixels.push_back(Pixel{static_cast<float>(row[i]), static_cast<float>(row[i + 1]),
                                   static_cast<float>(row[i + 2])});
        }
    }
    return pixels;
}

/// Pixel `i` of the filtered line whose old pixels are `stride` apart.
Pixel filtered(const Pixel* line, std::size_t stride, const LineFilter& filter, std::size_t i) {
    const Pixel* source = line + filter.first[i] * stride;
    const float* const weights = filter.weights.data() + i * filter.taps;
    Pixel sum{};
    for (std::size_t tap = 0; tap < filter.taps; ++tap) sum += weights[tap] * source[tap * stride];
    return sum;
}

/// The nearest whole number from 0 to 255.
float toWhole(float value) {
    constexpr float half = 0.5F;
    const float positive = value > 0 ? value : 0;
    const float bounded = positive < 255 ? positive : 255;
    return static_cast<float>(static_cast<int>(bounded + half));
}

}  // namespace

void fillPlanes(const Bitmap& picture, int side, std::span<float> planes) {
    const auto square = static_cast<std::size_t>(std::min(picture.width(), picture.height()));
    const auto size = static_cast<std::size_t>(side);
    const LineFilter filter = makeFilter(square, size);
    const std::vector<Pixel> pixels = centreSquarePixels(picture, square);
    std::vector<Pixel> row(square);
    float* target = planes.data();
    for (std::size_t y = 0; y < size; ++y) {
        for (std::size_t x = 0; x < square; ++x) {
            row[x] = filtered(pixels.data() + x, square, filter, y);
        }
        for (std::size_t x = 0; x < size; ++x, ++target) {
            const Pixel pixel = filtered(row.data(), 1, filter, x);
            for (std::size_t c = 0; c < Bitmap::channels; ++c) target[c * size * size] = pixel[c];
        }
    }
    std::ranges::transform(planes, planes.begin(), toWhole);
}

}  // namespace ornivo
