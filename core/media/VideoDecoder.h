#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "media/PhotoMetadata.h"
#include "platform/Bitmap.h"
#include "platform/Clip.h"

/// Takes still frames from a clip for the classifier, with the day and the position that the clip
/// states. All operations may be called from any thread.
namespace ornivo::VideoDecoder {

/// No clip gives more frames than this, however long it is.
inline constexpr int maxFrames = 12;

/// The extensions of clips, in lower case.
const std::set<std::string, std::less<>>& videoExtensions();

/// Whether the path's extension, in any case, is that of a clip.
bool isVideo(const std::filesystem::path& file);

struct SampledClip {
    /// In time order, upright.
    std::vector<Bitmap> frames;
    PhotoMetadata metadata;
};

/// Still frames from the middles of equal slices of the clip, about one a second and at most
/// `maxFrames`, with its day and position. The longer side of a frame has at most `maxDimension`
/// pixels. A frame is left out where it can't be decoded, or costs too much (`Clip::frames`);
/// absent when none is left, or when the file is no clip with moving pictures and a length.
std::optional<SampledClip> sampleFrames(const std::filesystem::path& file, int maxDimension);

/// When to take frames from a clip of a positive duration, in seconds: within half a second of the
/// middle of each slice, and inside the slice, so that no frame is taken twice.
std::vector<FrameTime> sampleTimes(double duration);

/// The capture day and the position of a clip, as far as it states them.
PhotoMetadata metadata(const Clip& clip);

/// The position in the first item whose key is one for positions and whose text can be read.
std::optional<PhotoLocation> location(const std::vector<ClipMetadataItem>& items);

/// The day that a date's text begins with: ten characters with a hyphen as the fifth and the
/// eighth, which are not looked at otherwise.
std::optional<std::string> day(std::string_view text);

/// The position in a text such as "+27.5916+086.5640+8850/": decimal degrees with their signs,
/// and perhaps a height, which is left out.
std::optional<PhotoLocation> parseISO6709(std::string_view text);

}  // namespace ornivo::VideoDecoder
