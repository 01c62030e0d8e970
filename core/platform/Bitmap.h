#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace ornivo {

/// A decoded image: 8-bit sRGB, three bytes a pixel, rows from the top without padding. The pixels
/// never change once made, and copies share them.
class Bitmap {
public:
    static constexpr int channels = 3;

    /// `pixels` holds width × height × 3 bytes; both sides are at least 1. Anything else is a
    /// programming error and ends the process.
    Bitmap(int width, int height, std::vector<std::uint8_t> pixels);

    int width() const { return width_; }
    int height() const { return height_; }
    std::span<const std::uint8_t> pixels() const { return *pixels_; }

    /// Whether both show the very same pixels in memory.
    bool sharesPixelsWith(const Bitmap& other) const { return pixels_ == other.pixels_; }

private:
    int width_;
    int height_;
    std::shared_ptr<const std::vector<std::uint8_t>> pixels_;
};

}  // namespace ornivo
