#include "platform/VipsImages.h"

#include <vips/vips.h>

// It relies on what stands before it.
#include <vips/vector.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

namespace ornivo {
namespace {

void dropMessage(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

bool start() {
    constexpr auto harmless =
        G_LOG_LEVEL_WARNING | G_LOG_LEVEL_MESSAGE | G_LOG_LEVEL_INFO | G_LOG_LEVEL_DEBUG;
    g_log_set_handler("VIPS", static_cast<GLogLevelFlags>(harmless), dropMessage, nullptr);
    if (VIPS_INIT("ornivo") != 0) return false;
    // Before 8.15 these run on code that Orc makes, and two pictures that let go of theirs at the
    // same time bring the program down.
    const bool hasOrc = vips_version(0) == 8 && vips_version(1) < 15;
    if (hasOrc) vips_vector_set_enabled(FALSE);
    // Failures are told by absent results; their texts would only pile up.
    vips_error_freeze();
    // No picture is read twice in a way that a cache could serve.
    vips_cache_set_max(0);
    // Several pictures are decoded side by side, so more threads a picture only get in each
    // other's way.
    vips_concurrency_set(1);
    vips_operation_block_set("VipsForeignLoad", TRUE);
    for (const auto& reader : stillReaders) vips_operation_block_set(reader.vipsClass, FALSE);
    return true;
}

struct RegionUnref {
    void operator()(VipsRegion* region) const { g_object_unref(region); }
};
using Region = std::unique_ptr<VipsRegion, RegionUnref>;

void appendRows(const Region& region, const VipsRect& area, std::vector<std::uint8_t>& pixels) {
    const std::size_t rowBytes = VIPS_REGION_SIZEOF_LINE(region.get());
    for (int y = area.top; y < VIPS_RECT_BOTTOM(&area); ++y) {
        const auto* row = VIPS_REGION_ADDR(region.get(), area.left, y);
        pixels.insert(pixels.end(), row, row + rowBytes);
    }
}

}  // namespace

void VipsImageUnref::operator()(VipsImage* image) const {
    g_object_unref(image);
}

void startVips() {
    static const bool started = start();
    if (!started) std::abort();
}

VipsImageHandle overPixelsOf(const Bitmap& bitmap) {
    startVips();
    const auto pixels = bitmap.pixels();
    const VipsImageHandle bands(vips_image_new_from_memory(pixels.data(), pixels.size(),
                                                           bitmap.width(), bitmap.height(),
                                                           Bitmap::channels, VIPS_FORMAT_UCHAR));
    auto image = vipsStep(vips_copy, bands, "interpretation", VIPS_INTERPRETATION_sRGB);
    // Read from the top down, scaling keeps what it will need again: several times faster.
    if (image) vips_image_set_int(image.get(), VIPS_META_SEQUENTIAL, 1);
    return image;
}

PixelSize sizeOf(const VipsImageHandle& image) {
    return {vips_image_get_width(image.get()), vips_image_get_height(image.get())};
}

VipsImageHandle resized(VipsImageHandle image, PixelSize size) {
    if (!image || sizeOf(image) == size) return image;
    const auto [width, height] = sizeOf(image);
    auto out = vipsStep(vips_resize, image, static_cast<double>(size.width) / width, "vscale",
                        static_cast<double>(size.height) / height, "kernel", VIPS_KERNEL_LANCZOS3);
    return out && sizeOf(out) == size ? std::move(out) : nullptr;
}

std::optional<Bitmap> rendered(const VipsImageHandle& image) {
    if (!image) return std::nullopt;
    const auto [width, height] = sizeOf(image);
    std::vector<std::uint8_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
                   Bitmap::channels);
    const Region region(vips_region_new(image.get()));
    constexpr int stripHeight = 64;
    for (int top = 0; top < height; top += stripHeight) {
        const VipsRect strip{0, top, width, std::min(stripHeight, height - top)};
        if (vips_region_prepare(region.get(), &strip) != 0) return std::nullopt;
        appendRows(region, strip, pixels);
    }
    return Bitmap(width, height, std::move(pixels));
}

}  // namespace ornivo
