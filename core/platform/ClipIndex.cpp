#include "platform/ClipIndex.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>

namespace ornivo {

std::optional<std::int64_t> ClipIndex::keyFrameAt(std::int64_t time) const {
    const AVIndexEntry* key =
        avformat_index_get_entry_from_timestamp(stream_, time, AVSEEK_FLAG_BACKWARD);
    return key ? std::optional(key->timestamp) : std::nullopt;
}

double ClipIndex::effort(std::int64_t keyFrame, std::int64_t time) const {
    // A picture of few bytes is copied together from others, which costs as well.
    constexpr double least = 0.2;
    const double whole = meanKeyFrameBytes();
    double sum = 0;
    const int count = avformat_index_get_entries_count(stream_);
    for (int i = av_index_search_timestamp(stream_, keyFrame, AVSEEK_FLAG_BACKWARD);
         i >= 0 && i < count; ++i) {
        const AVIndexEntry& picture = *avformat_index_get_entry(stream_, i);
        if (picture.timestamp >= time) break;
        sum += std::max(picture.size / whole, least);
    }
    return sum;
}

double ClipIndex::meanKeyFrameBytes() const {
    double bytes = 0;
    double keyFrames = 0;
    const int count = avformat_index_get_entries_count(stream_);
    for (int i = 0; i < count; ++i) {
        const AVIndexEntry& picture = *avformat_index_get_entry(stream_, i);
        if ((picture.flags & AVINDEX_KEYFRAME) == 0) continue;
        bytes += picture.size;
        ++keyFrames;
    }
    return bytes > 0 ? bytes / keyFrames : 1;
}

}  // namespace ornivo
