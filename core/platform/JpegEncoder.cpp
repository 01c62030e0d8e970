#include "platform/JpegEncoder.h"

#include <vips/vips.h>

#include <cstddef>

#include "platform/VipsImages.h"

namespace ornivo {

std::optional<std::string> jpegOf(const Bitmap& bitmap, int quality) {
    const VipsImageHandle image = overPixelsOf(bitmap);
    void* bytes = nullptr;
    std::size_t length = 0;
    const bool isMade =
        image && vips_jpegsave_buffer(image.get(), &bytes, &length, "Q", quality, "optimize_coding",
                                      TRUE, "strip", TRUE, nullptr) == 0;
    if (!isMade) return std::nullopt;
    const std::string jpeg(static_cast<const char*>(bytes), length);
    g_free(bytes);
    return jpeg;
}

}  // namespace ornivo
