#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "media/PhotoMetadata.h"
#include "platform/Bitmap.h"

/// Takes still frames from a clip for the classifier.
namespace ornivo::VideoDecoder {

/// The extensions of clips, in lower case.
const std::set<std::string, std::less<>>& videoExtensions();

/// Whether the path's extension, in any case, is that of a clip.
bool isVideo(const std::filesystem::path& file);

struct SampledClip {
    /// In time order, upright.
    std::vector<Bitmap> frames;
    PhotoMetadata metadata;
};

/// Still frames spread evenly across a clip, with its day and position. Clips give no frames yet:
/// the answer is always absent, which a run counts as a file that could not be read.
std::optional<SampledClip> sampleFrames(const std::filesystem::path& file, int maxDimension);

}  // namespace ornivo::VideoDecoder
