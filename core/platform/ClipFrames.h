#pragma once

#include <cstdint>
#include <optional>

#include "platform/FFmpegHandles.h"
#include "platform/FrameTime.h"

struct AVStream;

namespace ornivo {

/// Finds and decodes single frames of a clip's video. Decodes as little as it can: a key frame
/// that lies well by itself, otherwise the way there from the key frame before. One thread at a
/// time, and none of its own, so that few frames are in memory.
class ClipFrames {
public:
    /// Absent when the video's pictures can't be decoded here, or are larger than any camera's.
    /// The container must outlive the result.
    static std::optional<ClipFrames> of(AVFormatContext& container, int stream);

    /// A frame that the clip shows between the earliest and the latest time, with preference for
    /// the one wanted; null when there is none that is whole. Good until the next call. Cheapest
    /// when each time lies after the one before.
    const AVFrame* find(const FrameTime& time);

    const AVStream& stream() const { return *stream_; }

private:
    /// In units of the stream.
    struct Window {
        std::int64_t earliest;
        std::int64_t wanted;
        std::int64_t latest;
    };

    ClipFrames(AVFormatContext& container, AVStream& stream, DecoderHandle decoder);

    Window windowOf(const FrameTime& time) const;
    bool leadsTo(const Window& window) const;
    bool seek(std::int64_t time);
    bool readPacket();
    bool sendPacket(const Window& window);
    bool decodeNext(const Window& window);
    bool decodeKeyFrame();
    const AVFrame* decodeUpTo(const Window& window);
    bool isInterrupted() const;

    AVFormatContext* container_;
    AVStream* stream_;
    DecoderHandle decoder_;
    /// The last one decoded, and one before it that was too early when it came.
    FrameHandle frame_ = newFrame();
    FrameHandle earlier_ = newFrame();
    /// The next to be decoded.
    PacketHandle packet_ = newPacket();
    bool hasPacket_ = false;
    /// The decoder stands in the midst of the clip and takes what follows.
    bool isUnderWay_ = false;
    /// Where the window before this began.
    std::int64_t reached_ = 0;
};

}  // namespace ornivo
