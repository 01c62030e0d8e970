#include "platform/Bitmap.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace ornivo {

Bitmap::Bitmap(int width, int height, std::vector<std::uint8_t> pixels)
    : width_(width),
      height_(height),
      pixels_(std::make_shared<const std::vector<std::uint8_t>>(std::move(pixels))) {
    const bool fits = width >= 1 && height >= 1 &&
                      pixels_->size() == static_cast<std::size_t>(width) *
                                             static_cast<std::size_t>(height) * channels;
    if (fits) return;
    std::fprintf(stderr, "A bitmap of %d x %d was given %zu bytes.\n", width, height,
                 pixels_->size());
    std::abort();
}

}  // namespace ornivo
