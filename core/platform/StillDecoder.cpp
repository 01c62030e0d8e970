#include "platform/StillDecoder.h"

#include <vips/vips.h>

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/HeicReferences.h"
#include "platform/TiledPlanes.h"
#include "platform/VipsImages.h"

namespace ornivo {

namespace fs = std::filesystem;

namespace {

/// What a file may make the decoder do. Every number is above what cameras make.
struct Limits {
    /// Multi-shot medium format reaches 400 megapixels. Such a picture passes through in strips,
    /// so that only time grows with it.
    static constexpr std::int64_t pixels = 500'000'000;
    /// Phones reach 200 megapixels. A picture that its format keeps whole in memory while it is
    /// decoded takes up to six bytes a pixel, here a good gigabyte.
    static constexpr std::int64_t pixelsHeldWhole = 200'000'000;
    /// A HEIC file of that many pixels at the best quality. It is read into memory.
    static constexpr std::uintmax_t heicBytes = 256'000'000;
};

struct SourceUnref {
    void operator()(VipsSource* source) const { g_object_unref(source); }
};
using Source = std::unique_ptr<VipsSource, SourceUnref>;

/// Absent for a format that is none of ours, whatever the file's name says.
std::optional<StillFormat> formatOf(const Source& source) {
    if (!source) return std::nullopt;
    const char* found = vips_foreign_find_load_source(source.get());
    if (!found) return std::nullopt;
    for (const auto& reader : stillReaders) {
        if (std::string_view(found).starts_with(reader.vipsClass)) return reader.format;
    }
    return std::nullopt;
}

/// The file in memory, where what would keep libheif from reading it can be put right.
Source heicSource(const fs::path& file) {
    std::error_code error;
    const auto size = fs::file_size(file, error);
    gchar* bytes = nullptr;
    gsize length = 0;
    if (error || size > Limits::heicBytes) return nullptr;
    if (!g_file_get_contents(file.c_str(), &bytes, &length, nullptr)) return nullptr;
    dropMetadataReferences({reinterpret_cast<std::uint8_t*>(bytes), length});
    const auto release = [](void* memory, void*) { return g_free(memory), 0; };
    VipsBlob* blob = vips_blob_new(release, bytes, length);
    Source source(vips_source_new_from_blob(blob));
    vips_area_unref(VIPS_AREA(blob));
    return source;
}

/// The image at its full size, from the top down; so far only its header has been read.
VipsImageHandle opened(const Source& source) {
    if (!source) return nullptr;
    return VipsImageHandle(vips_image_new_from_source(source.get(), "", "access",
                                                      VIPS_ACCESS_SEQUENTIAL, "fail_on",
                                                      VIPS_FAIL_ON_TRUNCATED, nullptr));
}

VipsImageHandle openedJpeg(const Source& source, int shrink) {
    VipsImage* out = nullptr;
    vips_jpegload_source(source.get(), &out, "shrink", shrink, "access", VIPS_ACCESS_SEQUENTIAL,
                         "fail_on", VIPS_FAIL_ON_TRUNCATED, nullptr);
    return VipsImageHandle(out);
}

bool hasFlag(const VipsImageHandle& image, const char* name) {
    int value = 0;
    return vips_image_get_typeof(image.get(), name) == G_TYPE_INT &&
           vips_image_get_int(image.get(), name, &value) == 0 && value != 0;
}

bool isHeldWhole(const VipsImageHandle& image, StillFormat format) {
    if (format == StillFormat::webp || format == StillFormat::heic) return true;
    return hasFlag(image, "jpeg-multiscan") || hasFlag(image, "interlaced");
}

bool isWithinLimits(const VipsImageHandle& image, StillFormat format) {
    const auto [width, height] = sizeOf(image);
    const std::int64_t pixels = std::int64_t{width} * height;
    return pixels <= (isHeldWhole(image, format) ? Limits::pixelsHeldWhole : Limits::pixels);
}

/// The factor by which a JPEG can be reduced on its way out of the file, where it costs least.
/// The rest is left to the better filter: at least twice the wanted size in both sides.
int shrinkWhileDecoding(PixelSize size, PixelSize wanted) {
    for (const int shrink : {8, 4, 2}) {
        if (size.width / shrink >= 2 * wanted.width && size.height / shrink >= 2 * wanted.height) {
            return shrink;
        }
    }
    return 1;
}

VipsImageHandle inSrgb(const VipsImageHandle& image) {
    if (image && vips_image_get_typeof(image.get(), VIPS_META_ICC_NAME) != 0) {
        auto converted = vipsStep(vips_icc_transform, image, "srgb", "embedded", TRUE, "intent",
                                  VIPS_INTENT_RELATIVE, "black_point_compensation", TRUE);
        if (converted) return converted;
    }
    return vipsStep(vips_colourspace, image, VIPS_INTERPRETATION_sRGB);
}

/// Laid on black, in the image's own colours; but ink, of which none at all is white, as light.
VipsImageHandle flattened(VipsImageHandle image) {
    if (!image || !vips_image_hasalpha(image.get())) return image;
    if (vips_image_get_interpretation(image.get()) == VIPS_INTERPRETATION_CMYK) {
        image = inSrgb(image);
    }
    return vipsStep(vips_flatten, image);
}

/// Three 8-bit bands of an image in sRGB, whatever else it has.
VipsImageHandle inThreeBands(VipsImageHandle image) {
    if (!image || vips_image_get_bands(image.get()) < Bitmap::channels) return nullptr;
    return vipsStep(vips_cast_uchar, vipsStep(vips_extract_band, image, 0, "n", Bitmap::channels));
}

/// The image with a profile, unless it brings its own.
VipsImageHandle withProfile(const VipsImageHandle& image, std::span<const std::uint8_t> profile) {
    // Metadata may only be set on an image that nobody else holds.
    auto own = vipsStep(vips_copy, image);
    const bool hasOwn = own && vips_image_get_typeof(own.get(), VIPS_META_ICC_NAME) != 0;
    if (!own || hasOwn || profile.empty()) return own;
    vips_image_set_blob_copy(own.get(), VIPS_META_ICC_NAME, profile.data(), profile.size());
    return own;
}

}  // namespace

std::optional<DecodedStill> decodeStill(const fs::path& file, std::optional<int> maxDimension) {
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored)) return std::nullopt;
    startVips();
    Source source(vips_source_new_from_file(file.c_str()));
    const auto format = formatOf(source);
    if (!format) return std::nullopt;
    if (*format == StillFormat::heic) source = heicSource(file);
    auto image =
        *format == StillFormat::tiff ? openTiledPlanes(file, Limits::pixelsHeldWhole) : nullptr;
    if (!image) image = opened(source);
    if (!image || !isWithinLimits(image, *format)) return std::nullopt;
    const PixelSize full = sizeOf(image);
    const PixelSize wanted = maxDimension ? reducedSize(full, *maxDimension) : full;
    const int shrink = shrinkWhileDecoding(full, wanted);
    if (*format == StillFormat::jpeg && shrink > 1) image = openedJpeg(source, shrink);
    auto bitmap = rendered(inThreeBands(inSrgb(resized(flattened(std::move(image)), wanted))));
    if (!bitmap) return std::nullopt;
    return DecodedStill{*std::move(bitmap), *format == StillFormat::heic};
}

std::optional<Bitmap> decodeJpeg(std::span<const std::uint8_t> jpeg, int maxDimension,
                                 std::span<const std::uint8_t> profile) {
    if (jpeg.empty()) return std::nullopt;
    startVips();
    const Source source(vips_source_new_from_memory(jpeg.data(), jpeg.size()));
    auto image = openedJpeg(source, 1);
    if (!image || !isWithinLimits(image, StillFormat::jpeg)) return std::nullopt;
    const PixelSize full = sizeOf(image);
    const PixelSize wanted = reducedSize(full, maxDimension);
    const int shrink = shrinkWhileDecoding(full, wanted);
    if (shrink > 1) image = openedJpeg(source, shrink);
    return rendered(inThreeBands(inSrgb(resized(withProfile(image, profile), wanted))));
}

}  // namespace ornivo
