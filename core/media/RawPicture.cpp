#include "media/RawPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "media/RawFraming.h"
#include "platform/BitmapTransforms.h"
#include "platform/ByteSource.h"
#include "platform/LibraryPreviews.h"
#include "platform/RawContainer.h"
#include "platform/RawDeveloper.h"
#include "platform/StillDecoder.h"

namespace ornivo {

namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<std::uint8_t>;

/// A RAW file while its picture is looked for.
struct RawFile {
    const ByteSource& bytes;
    RawContainer head;
    int maxDimension;
};

/// The profile for a JPEG that doesn't bring its own.
Bytes profileFor(const RawFile& raw, const EmbeddedJpeg& jpeg) {
    constexpr std::uint64_t longestProfile = 4'000'000;
    if (jpeg.colours == ColourSpace::unknown) {
        for (const ByteRange range : {jpeg.profile, raw.head.profile}) {
            if (range.length == 0 || range.length > longestProfile) continue;
            if (auto profile = bytesOf(raw.bytes, range)) return *std::move(profile);
        }
    }
    const bool isTold = jpeg.colours != ColourSpace::unknown;
    const auto profile = profileOf(isTold ? jpeg.colours : raw.head.colours);
    return {profile.begin(), profile.end()};
}

RawFraming::Shape shapeOf(const RawFile& raw, const EmbeddedJpeg& jpeg) {
    const std::uint32_t told = raw.head.orientation != 0 ? raw.head.orientation : jpeg.orientation;
    return {std::max(told, 1U), raw.head.picture, raw.head.frame};
}

/// How large the whole must be decoded so that the part that is kept is large enough, and bars
/// can be told from a picture.
int sideToDecode(PixelSize whole, PixelSize kept, int maxDimension) {
    constexpr double leastForBars = 640;
    const double wanted = std::max<double>(maxDimension, leastForBars);
    const double factor = static_cast<double>(std::max(whole.width, whole.height)) /
                          std::max(kept.width, kept.height);
    return static_cast<int>(std::min(std::ceil(wanted * factor), 1e9));
}

/// Absent when what lies around the kept part is no bars, or the JPEG doesn't decode.
std::optional<Bitmap> withoutBars(const Bytes& jpeg, const Bytes& profile, PixelSize whole,
                                  PixelSize kept, int maxDimension) {
    const auto bitmap = decodeJpeg(jpeg, sideToDecode(whole, kept, maxDimension), profile);
    if (!bitmap) return std::nullopt;
    const double scale = static_cast<double>(bitmap->width()) / whole.width;
    const auto reduced = [scale](int side) {
        return std::max(static_cast<int>(std::floor(side * scale)), 1);
    };
    const PixelSize part{std::min(reduced(kept.width), bitmap->width()),
                         std::min(reduced(kept.height), bitmap->height())};
    if (!RawFraming::isBlackAround(*bitmap, part)) return std::nullopt;
    return downsampled(centrePart(*bitmap, part), maxDimension);
}

std::optional<Bitmap> pictureOf(const RawFile& raw, const ByteSource& source,
                                const EmbeddedJpeg& jpeg) {
    const auto bytes = bytesOf(source, jpeg.range);
    if (!bytes) return std::nullopt;
    const Bytes profile = profileFor(raw, jpeg);
    for (const auto& [kept, orientation] : RawFraming::framings(jpeg.size, shapeOf(raw, jpeg))) {
        const auto bitmap = kept == jpeg.size
                                ? decodeJpeg(*bytes, raw.maxDimension, profile)
                                : withoutBars(*bytes, profile, jpeg.size, kept, raw.maxDimension);
        if (bitmap) return upright(*bitmap, orientation);
    }
    return std::nullopt;
}

std::optional<Bitmap> firstGood(const RawFile& raw, const ByteSource& source,
                                const std::vector<EmbeddedJpeg>& jpegs) {
    std::vector<PixelSize> sizes;
    for (const EmbeddedJpeg& jpeg : jpegs) sizes.push_back(jpeg.size);
    for (const std::size_t index : RawFraming::orderOfUse(sizes, raw.maxDimension)) {
        if (auto bitmap = pictureOf(raw, source, jpegs[index])) return bitmap;
    }
    return std::nullopt;
}

/// The first good one among JPEGs that a library has taken out of the file.
std::optional<Bitmap> firstGood(const RawFile& raw, const std::vector<Bytes>& jpegs) {
    Bytes together;
    std::vector<EmbeddedJpeg> headers;
    for (const Bytes& jpeg : jpegs) together.insert(together.end(), jpeg.begin(), jpeg.end());
    const MemoryBytes source(together);
    std::uint64_t at = 0;
    for (const Bytes& jpeg : jpegs) {
        if (const auto header = readEmbeddedJpeg(source, {at, jpeg.size()})) {
            headers.push_back(*header);
        }
        at += jpeg.size();
    }
    return firstGood(raw, source, headers);
}

}  // namespace

std::optional<Bitmap> decodeRawPicture(const fs::path& file, int maxDimension) {
    const FileBytes bytes(file);
    if (auto head = readRawContainer(bytes)) {
        const RawFile raw{bytes, *std::move(head), maxDimension};
        if (auto bitmap = firstGood(raw, bytes, raw.head.pictures)) return bitmap;
        for (const auto& find : {previewsFoundByExiv2, previewsFoundByLibRaw}) {
            if (auto bitmap = firstGood(raw, find(file))) return bitmap;
        }
    }
    return developRaw(file, maxDimension);
}

}  // namespace ornivo
