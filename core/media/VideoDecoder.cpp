#include "media/VideoDecoder.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <utility>

#include "platform/Paths.h"
#include "platform/Text.h"

namespace ornivo::VideoDecoder {
namespace {

constexpr std::string_view signs = "+-";

/// A decimal number with a sign, and nothing else.
std::optional<double> signedNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || stop != end) return std::nullopt;
    return number;
}

bool isPositionKey(std::string_view key) {
    return key.find("location") != std::string_view::npos ||
           key == ClipMetadataItem::userDataPosition;
}

/// What `find` answers for the first element that it answers for.
template <typename Elements, typename Find>
auto firstFound(const Elements& elements, Find find) -> decltype(find(elements.front())) {
    for (const auto& element : elements) {
        if (auto found = find(element)) return found;
    }
    return std::nullopt;
}

}  // namespace

const std::set<std::string, std::less<>>& videoExtensions() {
    static const std::set<std::string, std::less<>> extensions{"mov", "mp4", "m4v"};
    return extensions;
}

bool isVideo(const std::filesystem::path& file) {
    return videoExtensions().contains(lowercasedExtension(file));
}

std::optional<SampledClip> sampleFrames(const std::filesystem::path& file, int maxDimension) {
    auto clip = Clip::open(file);
    if (!clip || !clip->hasVideo()) return std::nullopt;
    const double duration = clip->duration().value_or(0);
    if (!std::isfinite(duration) || duration <= 0) return std::nullopt;
    auto frames = clip->frames(sampleTimes(duration), maxDimension);
    if (frames.empty()) return std::nullopt;
    return SampledClip{std::move(frames), metadata(*clip)};
}

std::vector<FrameTime> sampleTimes(double duration) {
    constexpr double tolerance = 0.5;
    const double count = std::clamp(std::round(duration), 1.0, double{maxFrames});
    std::vector<FrameTime> times;
    for (double i = 0; i < count; ++i) {
        const double begin = i * duration / count;
        const double middle = (i + 0.5) * duration / count;
        const double end = (i + 1) * duration / count;
        times.push_back(
            {std::max(begin, middle - tolerance), middle, std::min(end, middle + tolerance)});
    }
    return times;
}

PhotoMetadata metadata(const Clip& clip) {
    PhotoMetadata metadata;
    metadata.captureDate = firstFound(clip.creationDates(), day);
    metadata.location = location(clip.metadata());
    return metadata;
}

std::optional<PhotoLocation> location(const std::vector<ClipMetadataItem>& items) {
    return firstFound(items, [](const ClipMetadataItem& item) {
        return isPositionKey(item.key) ? parseISO6709(item.text) : std::nullopt;
    });
}

std::optional<std::string> day(std::string_view text) {
    constexpr std::size_t dayLength = 10;
    const auto letters = characters(text);
    if (letters.size() < dayLength || letters[4] != "-" || letters[7] != "-") return std::nullopt;
    const std::string_view last = letters[dayLength - 1];
    return std::string(text.data(), last.data() + last.size());
}

std::optional<PhotoLocation> parseISO6709(std::string_view text) {
    constexpr std::string_view padding = "/ \n\t";
    const std::size_t begin = text.find_first_not_of(padding);
    if (begin == std::string_view::npos) return std::nullopt;
    text = text.substr(begin, text.find_last_not_of(padding) - begin + 1);
    if (signs.find(text.front()) == std::string_view::npos) return std::nullopt;
    const std::size_t second = text.find_first_of(signs, 1);
    if (second == std::string_view::npos) return std::nullopt;
    const std::size_t third = std::min(text.find_first_of(signs, second + 1), text.size());
    const auto latitude = signedNumber(text.substr(0, second));
    const auto longitude = signedNumber(text.substr(second, third - second));
    if (!latitude || !longitude) return std::nullopt;
    return PhotoLocation::make(*latitude, *longitude);
}

}  // namespace ornivo::VideoDecoder
