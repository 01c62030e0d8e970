#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>

#include "platform/ClipIndex.h"
#include "platform/FFmpegHandles.h"
#include "platform/FrameTime.h"
#include "platform/FrameWindow.h"
#include "platform/PictureRoom.h"

struct AVStream;

namespace ornivo {

/// Decodes single frames of a clip's video. One thread at a time, and none of its own, so that few
/// frames are in memory. The frames that it answers are good until the next call, and whole.
class ClipFrames {
public:
    /// Absent when the video's pictures can't be decoded here, or are larger than any camera's.
    /// The container must outlive the result.
    static std::optional<ClipFrames> of(AVFormatContext& container, int stream);

    FrameWindow windowOf(const FrameTime& time) const;

    ClipIndex index() const { return ClipIndex(*stream_); }

    /// The pixels of a picture, as the container states them.
    std::int64_t pixels() const;

    /// A key frame that begins in the window, with preference for one that begins near the wanted
    /// time. It is decoded by itself. Null when there is none.
    const AVFrame* keyFrameIn(const FrameWindow& window);

    /// The last key frame at or before a time, decoded by itself; null when there is none.
    const AVFrame* keyFrameAt(std::int64_t time);

    /// The first frame that begins in the window, or else the one that stands through it. All that
    /// it builds on is decoded, from where the last walk ended or from a key frame before. Null
    /// when there is no such frame, or when that would take too much memory.
    const AVFrame* walkTo(const FrameWindow& window);

    /// Whether a walk has come to nothing because it would have taken too much memory.
    bool lackedMemory() const { return room_->wasTooSmall(); }

private:
    ClipFrames(AVFormatContext& container, AVStream& stream, std::unique_ptr<PictureRoom> room,
               DecoderHandle decoder);

    bool leadsTo(const FrameWindow& window) const;
    const AVFrame* walkFrom(std::int64_t time, const FrameWindow& window);
    const AVFrame* walkFromEarlierKeyFrame(const FrameWindow& window);
    const AVFrame* decodeUpTo(const FrameWindow& window);
    bool seek(std::int64_t time);
    bool readPacket();
    bool sendPacket(const FrameWindow& window);
    bool decodeNext(const FrameWindow& window);
    const AVFrame* decodeKeyFrame();
    bool isInterrupted() const;

    AVFormatContext* container_;
    AVStream* stream_;
    std::unique_ptr<PictureRoom> room_;
    DecoderHandle decoder_;
    /// The last one decoded, and one before it that was too early when it came.
    FrameHandle frame_ = newFrame();
    FrameHandle earlier_ = newFrame();
    /// The next to be decoded.
    PacketHandle packet_ = newPacket();
    bool hasPacket_ = false;
    /// The decoder stands in the midst of the clip and takes what follows.
    bool isUnderWay_ = false;
    /// Frames that begin too early, and nothing else is built on, are not decoded; the last such
    /// begins here.
    bool skips_ = true;
    std::int64_t lastSkipped_ = 0;
    /// Where the window before this began.
    std::int64_t reached_ = 0;
    /// From here on the clip has come to its end.
    std::int64_t end_ = std::numeric_limits<std::int64_t>::max();
};

}  // namespace ornivo
