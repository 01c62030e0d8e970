#include "benchmarks/Photographs.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "support/Pictures.h"

namespace ornivo::benchmarks {
namespace {

constexpr int width = 6000;
constexpr int height = 4000;

}  // namespace

Bitmap detailedScene(int width, int height) {
    std::uint32_t random = 1;
    return testing::painted(width, height, [random](int x, int y) mutable {
        random = random * 1664525U + 1013904223U;
        const double shape =
            60 * std::sin(x / 37.0) * std::cos(y / 53.0) + 30 * std::sin(x * y / 9e5);
        const double grain = static_cast<double>(random >> 27U);
        const auto level = [&](double base) {
            return static_cast<std::uint8_t>(std::clamp(base + shape + grain, 0.0, 255.0));
        };
        return testing::Colour{level(110), level(120), level(90)};
    });
}

Photographs::Photographs(std::size_t count) {
    const testing::Exif facts{
        .dateTimeOriginal = "2026:05:17 08:31:02", .position = std::pair(56.1, 10.2), .iso = 800};
    const auto first =
        testing::writeJpeg(folder_ / "IMG_0.jpg", detailedScene(width, height), {.exif = facts});
    files_.push_back(first);
    while (files_.size() < count) {
        files_.push_back(folder_ / ("IMG_" + std::to_string(files_.size()) + ".jpg"));
        std::filesystem::copy_file(first, files_.back());
    }
}

}  // namespace ornivo::benchmarks
