#include "support/Pictures.h"

#include <vips/vips.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/TempFolder.h"

/// The HEVC encoder forgets to free a little of its memory.
extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
    return "leak:libx265";
}

namespace ornivo::testing {

namespace fs = std::filesystem;

namespace {

struct Unref {
    void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Image = std::unique_ptr<VipsImage, Unref>;

/// Runs an operation of libvips that makes an image from an image.
template <typename Operation, typename... Arguments>
Image made(Operation operation, const Image& in, Arguments... arguments) {
    VipsImage* out = nullptr;
    if (operation(in.get(), &out, arguments..., nullptr)) {
        throw std::runtime_error(vips_error_buffer());
    }
    return Image(out);
}

/// Runs an operation of libvips that writes an image into memory.
template <typename Operation, typename... Arguments>
std::string saved(Operation operation, const Image& in, Arguments... arguments) {
    void* bytes = nullptr;
    std::size_t size = 0;
    if (operation(in.get(), &bytes, &size, arguments..., nullptr)) {
        throw std::runtime_error(vips_error_buffer());
    }
    std::string out(static_cast<const char*>(bytes), size);
    g_free(bytes);
    return out;
}

/// The image lives no longer than the bitmap.
Image wrapped(const Bitmap& bitmap) {
    static const bool started = VIPS_INIT("ornivo-tests") == 0;
    if (!started) throw std::runtime_error("libvips does not start");
    const auto pixels = bitmap.pixels();
    const Image raw(vips_image_new_from_memory(pixels.data(), pixels.size(), bitmap.width(),
                                               bitmap.height(), Bitmap::channels,
                                               VIPS_FORMAT_UCHAR));
    return made(vips_copy, raw, "interpretation", VIPS_INTERPRETATION_sRGB);
}

Image deep(const Bitmap& bitmap) {
    return made(vips_colourspace, wrapped(bitmap), VIPS_INTERPRETATION_RGB16);
}

std::string jpegInDisplayP3(const Bitmap& bitmap) {
    const Image converted =
        made(vips_icc_transform, wrapped(bitmap), "p3", "input_profile", "srgb");
    return saved(vips_jpegsave_buffer, converted, "Q", 95);
}

std::string jpegBytes(const Bitmap& bitmap, JpegKind kind) {
    if (kind == JpegKind::displayP3) return jpegInDisplayP3(bitmap);
    const int quality = kind == JpegKind::asPreview ? 80 : 95;
    const auto space = kind == JpegKind::grey   ? VIPS_INTERPRETATION_B_W
                       : kind == JpegKind::cmyk ? VIPS_INTERPRETATION_CMYK
                                                : VIPS_INTERPRETATION_sRGB;
    return saved(vips_jpegsave_buffer, made(vips_colourspace, wrapped(bitmap), space), "Q", quality,
                 "strip", TRUE, "interlace", kind == JpegKind::progressive ? TRUE : FALSE);
}

/// The JPEG with the tags in a metadata segment right behind its first marker.
std::string withTags(const std::string& jpeg, const TiffDirectory& tags) {
    if (tags.isEmpty()) return jpeg;
    constexpr std::size_t markerSize = 2;
    const std::string payload = std::string("Exif\0\0", 6) + tags.file();
    const std::size_t length = payload.size() + 2;
    std::string segment = "\xFF\xE1";
    segment += static_cast<char>(length >> 8);
    segment += static_cast<char>(length & 0xFF);
    return jpeg.substr(0, markerSize) + segment + payload + jpeg.substr(markerSize);
}

struct TileArea {
    int left;
    int top;
    int side;
};

/// One channel of a part of the bitmap; what sticks out of it is 0.
std::string tile(const Bitmap& bitmap, std::size_t channel, TileArea area) {
    std::string values;
    for (int y = area.top; y < area.top + area.side; ++y) {
        for (int x = area.left; x < area.left + area.side; ++x) {
            const bool isInside = x < bitmap.width() && y < bitmap.height();
            const Colour colour = isInside ? testing::at(bitmap, x, y) : Colour{0, 0, 0};
            const std::array channels{colour.red, colour.green, colour.blue};
            values.push_back(static_cast<char>(channels[channel]));
        }
    }
    return values;
}

/// Of one colour each: top left, top right, bottom left, bottom right.
Bitmap inQuarters(int width, int height, const std::array<Colour, 4>& colours) {
    return painted(width, height, [=](int x, int y) {
        const std::size_t row = y < height / 2 ? 0 : 2;
        return colours[row + (x < width / 2 ? 0 : 1)];
    });
}

std::string heicBytes(const Bitmap& bitmap) {
    return saved(vips_heifsave_buffer, wrapped(bitmap), "Q", 95, "compression",
                 VIPS_FOREIGN_HEIF_COMPRESSION_HEVC);
}

}  // namespace

Bitmap filled(int width, int height, Colour colour) {
    return painted(width, height, [colour](int, int) { return colour; });
}

Bitmap painted(int width, int height, const std::function<Colour(int, int)>& colourAt) {
    std::vector<std::uint8_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
                   Bitmap::channels);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Colour colour = colourAt(x, y);
            pixels.insert(pixels.end(), {colour.red, colour.green, colour.blue});
        }
    }
    return {width, height, std::move(pixels)};
}

Bitmap quarters(int width, int height) {
    return inQuarters(width, height, {{{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}}});
}

Bitmap quartersInAdobeRGB(int width, int height) {
    return inQuarters(width, height, {{{219, 0, 0}, {144, 255, 60}, {0, 0, 250}, {255, 255, 255}}});
}

bool isNear(Colour a, Colour b, int tolerance) {
    return std::abs(a.red - b.red) <= tolerance && std::abs(a.green - b.green) <= tolerance &&
           std::abs(a.blue - b.blue) <= tolerance;
}

std::ostream& operator<<(std::ostream& out, Colour colour) {
    return out << "(" << +colour.red << ", " << +colour.green << ", " << +colour.blue << ")";
}

Colour at(const Bitmap& bitmap, int x, int y) {
    const auto offset = (static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width()) +
                         static_cast<std::size_t>(x)) *
                        Bitmap::channels;
    const auto pixel = bitmap.pixels().subspan(offset, Bitmap::channels);
    return {pixel[0], pixel[1], pixel[2]};
}

fs::path writeJpeg(const fs::path& path, int width, int height, const JpegOptions& options) {
    return writeJpeg(path, filled(width, height, options.colour), options);
}

std::string jpegOf(const Bitmap& bitmap, const JpegOptions& options) {
    return withTags(jpegBytes(bitmap, options.kind), options.exif.directory());
}

fs::path writeJpeg(const fs::path& path, const Bitmap& bitmap, const JpegOptions& options) {
    return writeFile(path, jpegOf(bitmap, options));
}

fs::path writeJpegWithTags(const fs::path& path, int width, int height, const TiffDirectory& tags) {
    return writeFile(path, withTags(jpegBytes(filled(width, height), JpegKind::colour), tags));
}

fs::path writePng(const fs::path& path, const Bitmap& bitmap, PngKind kind) {
    switch (kind) {
        case PngKind::eightBit:
            return writeFile(path, saved(vips_pngsave_buffer, wrapped(bitmap)));
        case PngKind::sixteenBit:
            return writeFile(path, saved(vips_pngsave_buffer, deep(bitmap)));
        case PngKind::palette:
            return writeFile(path, saved(vips_pngsave_buffer, wrapped(bitmap), "palette", TRUE));
        case PngKind::halfTransparent:
            break;
    }
    constexpr double halfOpaque = 128;
    const Image transparent = made(vips_bandjoin_const1, wrapped(bitmap), halfOpaque);
    return writeFile(path, saved(vips_pngsave_buffer, transparent));
}

fs::path writeTiff(const fs::path& path, const Bitmap& bitmap, TiffKind kind) {
    const Image image = kind == TiffKind::sixteenBit ? deep(bitmap) : wrapped(bitmap);
    return writeFile(path, saved(vips_tiffsave_buffer, image));
}

fs::path writeTiffInPlanes(const fs::path& path, const Bitmap& bitmap, std::uint16_t orientation) {
    constexpr int side = 16;
    std::string data;
    for (std::size_t channel = 0; channel < Bitmap::channels; ++channel) {
        for (int top = 0; top < bitmap.height(); top += side) {
            for (int left = 0; left < bitmap.width(); left += side) {
                data += tile(bitmap, channel, {left, top, side});
            }
        }
    }
    constexpr std::size_t tileSize = std::size_t{side} * side;
    return writeFile(path, TiffDirectory()
                               .longs(256, {static_cast<std::uint32_t>(bitmap.width())})
                               .longs(257, {static_cast<std::uint32_t>(bitmap.height())})
                               .shorts(258, {8, 8, 8})
                               .shorts(259, {1})
                               .shorts(262, {2})
                               .shorts(tag::orientation, {orientation})
                               .shorts(277, {3})
                               .shorts(284, {2})
                               .longs(322, {side})
                               .longs(323, {side})
                               .tiles(data, data.size() / tileSize)
                               .file());
}

fs::path writeWebp(const fs::path& path, const Bitmap& bitmap) {
    return writeFile(path, saved(vips_webpsave_buffer, wrapped(bitmap), "Q", 95));
}

fs::path writeHeic(const fs::path& path, const Bitmap& bitmap) {
    return writeFile(path, heicBytes(bitmap));
}

bool canWriteHeic() {
    try {
        heicBytes(filled(64, 64));
        return true;
    } catch (const std::runtime_error&) {
        vips_error_clear();
        return false;
    }
}

}  // namespace ornivo::testing
