#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "engine/SortEngine.h"
#include "media/ImageDecoder.h"
#include "platform/Error.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// The longer side, in pixels, of what the identifier gets to see.
constexpr int maxDimension = 640;

/// The files of a shot that are looked at: clips only where there is no still.
std::vector<fs::path> candidates(const std::vector<fs::path>& urls) {
    std::vector<fs::path> stills;
    std::copy_if(urls.begin(), urls.end(), std::back_inserter(stills),
                 [](const fs::path& url) { return !VideoDecoder::isVideo(url); });
    return stills.empty() ? urls : stills;
}

/// The month in a capture day, "yyyy-MM-dd".
std::optional<int> monthOf(const std::string& captureDay) {
    constexpr std::size_t yearAndHyphen = 5;
    if (captureDay.size() <= yearAndHyphen) return std::nullopt;
    const std::string digits = captureDay.substr(yearAndHyphen, 2);
    const char* const end = digits.data() + digits.size();
    int month = 0;
    const auto parsed = std::from_chars(digits.data(), end, month);
    const bool isNumber = parsed.ec == std::errc() && parsed.ptr == end;
    return isNumber ? std::optional(month) : std::nullopt;
}

/// Replaces the best answer by a surer one; of equals the earlier stays.
void keepSurer(std::optional<IdentifiedSpecies>& best, IdentifiedSpecies answer) {
    if (!best || answer.confidence() > best->confidence()) best = std::move(answer);
}

std::exception_ptr unreadable() {
    return std::make_exception_ptr(Error::unreadableFile());
}

}  // namespace

SortEngine::ClassifiedShot SortEngine::classifyShot(
    const std::vector<fs::path>& urls, const std::optional<PhotoLocation>& assumedLocation) {
    std::optional<IdentifiedSpecies> best;
    std::optional<PhotoMetadata> metadata;
    std::exception_ptr lastError = unreadable();
    for (const fs::path& url : candidates(urls)) {
        try {
            ClassifiedShot answer = classify(url, assumedLocation);
            if (!metadata) metadata = std::move(answer.metadata);
            keepSurer(best, std::move(answer.species));
        } catch (const std::exception&) {
            lastError = std::current_exception();
        }
    }
    if (!best || !metadata) std::rethrow_exception(lastError);
    return {std::move(*best), std::move(*metadata)};
}

SortEngine::ClassifiedShot SortEngine::classify(
    const fs::path& url, const std::optional<PhotoLocation>& assumedLocation) {
    if (VideoDecoder::isVideo(url)) return classifyVideo(url, assumedLocation);
    auto decoded = ImageDecoder::decode(url, maxDimension, /*measureQuality=*/false);
    if (!decoded) throw Error::unreadableFile();
    auto& [image, metadata] = *decoded;
    auto species = identify(image, metadata.orientation, contextOf(metadata, assumedLocation));
    return {std::move(species), std::move(metadata)};
}

SortEngine::ClassifiedShot SortEngine::classifyVideo(
    const fs::path& url, const std::optional<PhotoLocation>& assumedLocation) {
    const auto clip = VideoDecoder::sampleFrames(url, maxDimension);
    if (!clip) throw Error::unreadableFile();
    return classifyFrames(*clip, assumedLocation);
}

SortEngine::ClassifiedShot SortEngine::classifyFrames(
    const VideoDecoder::SampledClip& clip, const std::optional<PhotoLocation>& assumedLocation) {
    const IdentificationContext context = contextOf(clip.metadata, assumedLocation);
    std::optional<IdentifiedSpecies> best;
    std::exception_ptr lastError = unreadable();
    for (const Bitmap& frame : clip.frames) {
        try {
            keepSurer(best, identify(frame, clip.metadata.orientation, context));
        } catch (const std::exception&) {
            lastError = std::current_exception();
        }
    }
    if (!best) std::rethrow_exception(lastError);
    return {std::move(*best), clip.metadata};
}

IdentifiedSpecies SortEngine::identify(const Bitmap& image, std::uint32_t orientation,
                                       const IdentificationContext& context) {
    const std::lock_guard lock(identifying_);
    return identifier_->identify(image, orientation, context);
}

IdentificationContext SortEngine::contextOf(
    const PhotoMetadata& metadata, const std::optional<PhotoLocation>& assumedLocation) const {
    std::optional<PhotoLocation> location;
    if (identifier_->usesLocation()) {
        location = metadata.location ? metadata.location : assumedLocation;
    }
    std::optional<int> month;
    if (identifier_->usesDate() && metadata.captureDate) month = monthOf(*metadata.captureDate);
    return {location, month};
}

}  // namespace ornivo
