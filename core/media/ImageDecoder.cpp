#include "media/ImageDecoder.h"

#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <utility>

#include "media/PhotoDate.h"
#include "media/PhotoQualityMeter.h"
#include "media/RawPicture.h"
#include "platform/BitmapTransforms.h"
#include "platform/Paths.h"
#include "platform/StillDecoder.h"

namespace ornivo::ImageDecoder {
namespace {

using Properties = std::optional<ImageProperties>;

const std::set<std::string, std::less<>>& rawExtensions() {
    static const std::set<std::string, std::less<>> extensions{"arw", "nef", "cr2", "cr3",
                                                               "orf", "rw2", "raw", "dng"};
    return extensions;
}

/// The orientation that the properties tell; upright unless it is one of the eight.
std::uint32_t orientationIn(const Properties& properties) {
    constexpr std::uint32_t upright = 1;
    if (!properties) return upright;
    const auto found = properties->find(property::orientation);
    if (found == properties->end() || !found->is_number_integer()) return upright;
    const auto value = found->get<std::int64_t>();
    return value >= 1 && value <= 8 ? static_cast<std::uint32_t>(value) : upright;
}

PhotoMetadata metadataFrom(const Properties& properties) {
    PhotoMetadata metadata;
    if (!properties) return metadata;
    metadata.location = PhotoLocation::fromProperties(*properties);
    metadata.captureDate = PhotoDate::dateString(*properties);
    metadata.captureSecond = PhotoDate::captureSecond(*properties);
    return metadata;
}

std::optional<DecodedImage> decodeRAW(const std::filesystem::path& file, int maxDimension,
                                      bool measureQuality) {
    auto image = decodeRawPicture(file, maxDimension);
    if (!image) return std::nullopt;
    const Properties facts = properties(file);
    PhotoMetadata metadata = metadataFrom(facts);
    if (measureQuality) metadata.quality = PhotoQualityMeter::measure(*image, facts);
    return DecodedImage{*std::move(image), std::move(metadata)};
}

std::optional<DecodedImage> decodeOrdinary(const std::filesystem::path& file, int maxDimension,
                                           bool measureQuality) {
    auto still = decodeStill(file, measureQuality ? std::nullopt : std::optional(maxDimension));
    if (!still) return std::nullopt;
    const Properties facts = properties(file);
    PhotoMetadata metadata = metadataFrom(facts);
    if (!still->isUpright) metadata.orientation = orientationIn(facts);
    if (measureQuality) {
        metadata.quality = PhotoQualityMeter::measure(still->bitmap, facts);
        still->bitmap = downsampled(still->bitmap, maxDimension);
    }
    return DecodedImage{std::move(still->bitmap), std::move(metadata)};
}

}  // namespace

std::optional<DecodedImage> decode(const std::filesystem::path& file, int maxDimension,
                                   bool measureQuality) {
    const bool isRaw = rawExtensions().contains(lowercasedExtension(file));
    return (isRaw ? decodeRAW : decodeOrdinary)(file, maxDimension, measureQuality);
}

std::optional<OrientedBitmap> decodeCGImage(const std::filesystem::path& file, int maxDimension) {
    auto decoded = decode(file, maxDimension, false);
    if (!decoded) return std::nullopt;
    return OrientedBitmap{std::move(decoded->image), decoded->metadata.orientation};
}

std::optional<ImageProperties> properties(const std::filesystem::path& file) {
    return readImageProperties(file);
}

}  // namespace ornivo::ImageDecoder
