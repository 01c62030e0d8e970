#include "platform/TiledPlanes.h"

#include <tiffio.h>
#include <vips/vips.h>

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace ornivo {
namespace {

struct CloseTiff {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using Tiff = std::unique_ptr<TIFF, CloseTiff>;

std::uint32_t number(const Tiff& tiff, std::uint32_t tag) {
    std::uint32_t value = 0;
    TIFFGetField(tiff.get(), tag, &value);
    return value;
}

bool hasTiledPlanes(const Tiff& tiff) {
    std::uint16_t arrangement = PLANARCONFIG_CONTIG;
    TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_PLANARCONFIG, &arrangement);
    return TIFFIsTiled(tiff.get()) != 0 && arrangement == PLANARCONFIG_SEPARATE;
}

/// Only for a picture in red, green and blue: libtiff has changed the colours of any other.
void attachProfile(const Tiff& tiff, const VipsImageHandle& image) {
    std::uint16_t photometric = 0;
    std::uint32_t size = 0;
    const void* profile = nullptr;
    TIFFGetField(tiff.get(), TIFFTAG_PHOTOMETRIC, &photometric);
    if (photometric != PHOTOMETRIC_RGB) return;
    if (TIFFGetField(tiff.get(), TIFFTAG_ICCPROFILE, &size, &profile) == 0) return;
    vips_image_set_blob_copy(image.get(), VIPS_META_ICC_NAME, profile, size);
}

/// The pixels as libtiff packs them, from the top left of the stored picture; empty on failure.
std::vector<std::uint32_t> packedPixels(const Tiff& tiff, std::uint32_t width,
                                        std::uint32_t height) {
    constexpr int stopOnError = 1;
    std::array<char, 1024> ignored{};
    TIFFRGBAImage reader{};
    if (TIFFRGBAImageBegin(&reader, tiff.get(), stopOnError, ignored.data()) == 0) return {};
    reader.req_orientation = reader.orientation;
    std::vector<std::uint32_t> packed(std::size_t{width} * height);
    if (TIFFRGBAImageGet(&reader, packed.data(), width, height) == 0) packed.clear();
    TIFFRGBAImageEnd(&reader);
    return packed;
}

/// Red, green and blue of each pixel; they are dimmed by its transparency already.
std::vector<std::uint8_t> inThreeBands(const std::vector<std::uint32_t>& packed) {
    std::vector<std::uint8_t> bands;
    bands.reserve(packed.size() * Bitmap::channels);
    for (const std::uint32_t pixel : packed) {
        for (const std::uint32_t band : {TIFFGetR(pixel), TIFFGetG(pixel), TIFFGetB(pixel)}) {
            bands.push_back(static_cast<std::uint8_t>(band));
        }
    }
    return bands;
}

}  // namespace

VipsImageHandle openTiledPlanes(const std::filesystem::path& file, std::int64_t maxPixels) {
    const Tiff tiff(TIFFOpen(file.c_str(), "r"));
    if (!tiff || !hasTiledPlanes(tiff)) return nullptr;
    const std::uint32_t width = number(tiff, TIFFTAG_IMAGEWIDTH);
    const std::uint32_t height = number(tiff, TIFFTAG_IMAGELENGTH);
    if (width == 0 || height == 0) return nullptr;
    if (std::uint64_t{width} * height > static_cast<std::uint64_t>(maxPixels)) return nullptr;
    const auto bands = inThreeBands(packedPixels(tiff, width, height));
    if (bands.empty()) return nullptr;
    const VipsImageHandle stored(vips_image_new_from_memory_copy(
        bands.data(), bands.size(), static_cast<int>(width), static_cast<int>(height),
        Bitmap::channels, VIPS_FORMAT_UCHAR));
    auto image = vipsStep(vips_copy, stored, "interpretation", VIPS_INTERPRETATION_sRGB);
    if (image) attachProfile(tiff, image);
    return image;
}

}  // namespace ornivo
