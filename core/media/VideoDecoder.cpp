#include "media/VideoDecoder.h"

#include "platform/Paths.h"

namespace ornivo::VideoDecoder {

const std::set<std::string, std::less<>>& videoExtensions() {
    static const std::set<std::string, std::less<>> extensions{"mov", "mp4", "m4v"};
    return extensions;
}

bool isVideo(const std::filesystem::path& file) {
    return videoExtensions().contains(lowercasedExtension(file));
}

std::optional<SampledClip> sampleFrames(const std::filesystem::path&, int) {
    return std::nullopt;
}

}  // namespace ornivo::VideoDecoder
