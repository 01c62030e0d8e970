#include "review/Poster.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string_view>

#include "media/ImageDecoder.h"
#include "media/VideoDecoder.h"
#include "platform/BitmapTransforms.h"
#include "platform/Clip.h"
#include "platform/JpegEncoder.h"
#include "platform/Paths.h"
#include "review/PosterFolder.h"

namespace ornivo::Poster {
namespace {

namespace fs = std::filesystem;

/// Of libjpeg; above it files grow faster than anybody sees.
constexpr int quality = 85;

constexpr std::array<std::string_view, 4> shownPictures{"jpg", "jpeg", "png", "webp"};
constexpr std::array<std::string_view, 3> shownCodecs{"vp8", "vp9", "av1"};
/// Baseline, Main and High: 8 bits, with half the colour in both directions. Of what is above them
/// browsers play some or none.
constexpr std::array shownH264Profiles{66, 77, 100};

template <typename Table, typename Value>
bool holds(const Table& table, const Value& value) {
    return std::ranges::find(table, value) != table.end();
}

bool isShown(const Clip& clip) {
    const Clip::Coding coding = clip.coding();
    if (coding.codec != "h264") return holds(shownCodecs, coding.codec);
    return !coding.h264Profile || holds(shownH264Profiles, *coding.h264Profile);
}

/// What is on the first frames is often the way to the bird.
FrameTime inFirstThird(double duration) {
    return {duration / 12, duration / 6, duration / 3};
}

std::optional<Bitmap> pictureOfClip(const fs::path& file) {
    auto clip = Clip::open(file);
    if (!clip || clip->duration().value_or(0) <= 0) return std::nullopt;
    auto frames = clip->frames({inFirstThird(*clip->duration())}, maxDimension);
    return frames.empty() ? std::nullopt : std::optional(std::move(frames.front()));
}

std::optional<Bitmap> pictureOf(const fs::path& file) {
    if (VideoDecoder::isVideo(file)) return pictureOfClip(file);
    const auto decoded = ImageDecoder::decodeCGImage(file, maxDimension);
    if (!decoded) return std::nullopt;
    return upright(decoded->image, decoded->orientation);
}

bool isShownClip(const fs::path& file) {
    if (!VideoDecoder::isVideo(file)) return false;
    const auto clip = Clip::open(file);
    return clip && isShown(*clip);
}

std::optional<std::string> made(const std::vector<fs::path>& shot) {
    if (std::ranges::any_of(shot, isShownPicture) || isShownClip(shot.front())) return std::nullopt;
    for (const fs::path& file : shot) {
        const auto picture = pictureOf(file);
        const auto jpeg = picture ? jpegOf(*picture, quality) : std::nullopt;
        if (jpeg) return PosterFolder::marked(*jpeg);
    }
    return std::nullopt;
}

}  // namespace

bool isShownPicture(const fs::path& file) {
    return holds(shownPictures, lowercasedExtension(file));
}

std::optional<std::string> make(const std::vector<fs::path>& shot) {
    try {
        return made(shot);
    } catch (const std::exception&) {
        // The shot is filed all the same.
        return std::nullopt;
    }
}

std::int64_t roomFor(const std::vector<fs::path>& files) {
    // Detailed pictures of 1,600 × 1,067 pixels take as much; most take half of it.
    constexpr std::int64_t roomOfOne = 600'000;
    return roomOfOne *
           std::ranges::count_if(files, [](const fs::path& file) { return !isShownPicture(file); });
}

}  // namespace ornivo::Poster
