#pragma once

#include <cstdint>
#include <optional>

struct AVStream;

namespace ornivo {

/// What the container tells of a video's pictures before any is decoded. Times are those of
/// decoding, in units of the stream. The stream must outlive the index.
class ClipIndex {
public:
    explicit ClipIndex(AVStream& stream) : stream_(&stream) {}

    /// Of the last key frame at or before a time; absent when there is none.
    std::optional<std::int64_t> keyFrameAt(std::int64_t time) const;

    /// What it takes to decode all pictures from a key frame up to a time, without that: an
    /// estimate, the decoding of one key frame being 1. It goes by the sizes of the pictures, so
    /// that it is the same on every machine.
    double effort(std::int64_t keyFrame, std::int64_t time) const;

private:
    double meanKeyFrameBytes() const;

    AVStream* stream_;
};

}  // namespace ornivo
