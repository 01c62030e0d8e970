#include "platform/RawDeveloper.h"

#include <glib.h>
#include <libraw/libraw.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/BitmapTransforms.h"

namespace ornivo {

namespace fs = std::filesystem;

namespace {

struct ClearImage {
    void operator()(libraw_processed_image_t* image) const { LibRaw::dcraw_clear_mem(image); }
};
using DevelopedImage = std::unique_ptr<libraw_processed_image_t, ClearImage>;

/// A RAW file that tells whether a picture can have come out of it. LibRaw itself leaves parts of
/// a picture as they happen to lie in memory, without a word, when their data is missing.
class WatchedFile : public LibRaw_bigfile_datastream {
public:
    using LibRaw_bigfile_datastream::LibRaw_bigfile_datastream;

    int seek(INT64 offset, int whence) override {
        const int status = LibRaw_bigfile_datastream::seek(offset, whence);
        wentTooFar_ = wentTooFar_ || tell() > size();
        return status;
    }

    int read(void* out, std::size_t size, std::size_t count) override {
        const int got = LibRaw_bigfile_datastream::read(out, size, count);
        const auto complete = static_cast<std::size_t>(std::max(got, 0));
        taken_ += complete * size;
        missing_ += (count - complete) * size;
        return got;
    }

    int get_char() override {
        ++taken_;
        return LibRaw_bigfile_datastream::get_char();
    }

    /// Forgets the reading of the headers, which looks in vain at many places.
    void beginPicture() {
        wentTooFar_ = false;
        taken_ = 0;
        missing_ = 0;
    }

    /// Whether what was taken since `beginPicture` suffices for so many pixels.
    bool heldPicture(std::size_t pixels) const {
        // Some formats are read in blocks, of which the last may be short in a whole file too.
        constexpr std::size_t blockSize = 65536;
        // No sensor's data is packed as tightly as this, even without any light.
        constexpr std::size_t mostPixelsPerByte = 64;
        return !wentTooFar_ && missing_ <= blockSize && taken_ >= pixels / mostPixelsPerByte;
    }

private:
    bool wentTooFar_ = false;
    std::size_t taken_ = 0;
    std::size_t missing_ = 0;
};

/// A camera's name without what is written differently from place to place.
std::string plain(std::string_view name) {
    std::string letters;
    for (const char letter : name) {
        if (g_ascii_isalnum(letter)) letters.push_back(g_ascii_tolower(letter));
    }
    return letters;
}

/// The library's list of cameras, without the other names that some are sold under.
const std::set<std::string, std::less<>>& knownCameras() {
    static const auto cameras = [] {
        std::set<std::string, std::less<>> names;
        for (const char* const* camera = LibRaw::cameraList(); *camera; ++camera) {
            const std::string_view entry(*camera);
            const std::size_t end =
                std::min({entry.find(" / "), entry.find(" ("), entry.find(", ")});
            names.insert(plain(entry.substr(0, end)));
        }
        return names;
    }();
    return cameras;
}

bool isKnown(const libraw_iparams_t& camera) {
    return std::ranges::any_of(std::array{camera.model, camera.normalized_model}, [&](auto model) {
        return knownCameras().contains(plain(std::string(camera.make) + model));
    });
}

/// Whether the camera's colours and borders are known: told by a DNG, or in the library's tables.
/// A camera that it doesn't know gets those of one whose name begins alike: a cast, and black
/// edges.
bool knowsCamera(const LibRaw& raw) {
    const auto& colour = raw.imgdata.color;
    if (raw.imgdata.idata.colors == 1) return true;
    const auto isSet = [](float value) { return value != 0; };
    const bool hasColours = std::ranges::any_of(colour.cam_xyz[0], isSet) ||
                            std::ranges::any_of(colour.dng_color[0].colormatrix[0], isSet);
    return hasColours && (raw.imgdata.idata.dng_version != 0 || isKnown(raw.imgdata.idata));
}

void configure(LibRaw& raw, int maxDimension) {
    libraw_output_params_t& parameters = raw.imgdata.params;
    parameters.use_camera_wb = 1;
    // The brightest ten-thousandth becomes white: a dark picture is lifted, but nothing that is
    // worth seeing is burnt out.
    parameters.auto_bright_thr = 0.0001F;
    parameters.output_color = 1;  // sRGB, and below its gamma: the power and the slope at black
    parameters.gamm[0] = 1 / 2.4;
    parameters.gamm[1] = 12.92;
    parameters.output_bps = 8;
    // One pixel from each 2 x 2 of the sensor is enough, sharper and several times faster.
    const int sensorSide = std::max(raw.imgdata.sizes.iwidth, raw.imgdata.sizes.iheight);
    parameters.half_size = maxDimension <= sensorSide / 2 ? 1 : 0;
}

std::vector<std::uint8_t> inThreeChannels(std::span<const std::uint8_t> grey) {
    std::vector<std::uint8_t> pixels;
    pixels.reserve(grey.size() * Bitmap::channels);
    for (const std::uint8_t value : grey) pixels.insert(pixels.end(), Bitmap::channels, value);
    return pixels;
}

/// A sensor without colour filters gives grey.
std::optional<Bitmap> bitmapOf(const libraw_processed_image_t& image) {
    if (image.type != LIBRAW_IMAGE_BITMAP || image.bits != 8) return std::nullopt;
    if (image.colors != 1 && image.colors != Bitmap::channels) return std::nullopt;
    const std::span values(image.data, image.data_size);
    std::vector<std::uint8_t> pixels(values.begin(), values.end());
    if (image.colors == 1) pixels = inThreeChannels(values);
    return Bitmap(image.width, image.height, std::move(pixels));
}

}  // namespace

std::optional<Bitmap> developRaw(const fs::path& file, int maxDimension) {
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored)) return std::nullopt;
    WatchedFile data(file.c_str());
    if (!data.valid()) return std::nullopt;
    const auto raw = std::make_unique<LibRaw>();
    bool isDamaged = false;
    raw->set_dataerror_handler(
        [](void* damaged, const char*, auto) { *static_cast<bool*>(damaged) = true; }, &isDamaged);
    if (raw->open_datastream(&data) != LIBRAW_SUCCESS) return std::nullopt;
    if (!knowsCamera(*raw)) return std::nullopt;
    configure(*raw, maxDimension);
    data.beginPicture();
    if (raw->unpack() != LIBRAW_SUCCESS || isDamaged) return std::nullopt;
    const auto& sizes = raw->imgdata.sizes;
    if (!data.heldPicture(std::size_t{sizes.raw_width} * sizes.raw_height)) return std::nullopt;
    if (raw->dcraw_process() != LIBRAW_SUCCESS) return std::nullopt;
    int status = LIBRAW_SUCCESS;
    const DevelopedImage developed(raw->dcraw_make_mem_image(&status));
    if (!developed || status != LIBRAW_SUCCESS) return std::nullopt;
    const auto bitmap = bitmapOf(*developed);
    return bitmap ? std::optional(downsampled(*bitmap, maxDimension)) : std::nullopt;
}

}  // namespace ornivo
