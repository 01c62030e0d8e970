#pragma once

#include <cstdint>

#include "platform/FFmpegHandles.h"

namespace ornivo {

/// Where a decoder puts its pictures, with a bound on how many it may hold at a time. A key frame
/// always fits; what is decoded with the help of other frames may not.
///
/// Must outlive the decoder and all of its frames.
class PictureRoom {
public:
    PictureRoom() = default;
    PictureRoom(const PictureRoom&) = delete;
    PictureRoom& operator=(const PictureRoom&) = delete;

    /// Makes the decoder come here. Call it before the decoder is opened.
    void serve(AVCodecContext& decoder);

    /// Says that the next packet is the key frame that a decoder begins with. It builds on nothing,
    /// but in some clips names frames before it, which the decoder then makes up of one grey. They
    /// all get the same memory.
    void beginKeyFrame();

    /// Says that the next packet is any other.
    void beginFrame();

    /// Whether the decoder has ever been denied a picture. What it goes on to decode with the help
    /// of others is not to be trusted.
    bool wasTooSmall() const { return wasTooSmall_; }

private:
    static int handOut(AVCodecContext* decoder, AVFrame* frame, int flags);
    static void takeBack(void* room, std::uint8_t* nothing);

    int handOut(AVCodecContext& decoder, AVFrame& frame, int flags);

    int handedOut_ = 0;
    int ofKeyFrame_ = 0;
    bool isKeyFrame_ = false;
    bool wasTooSmall_ = false;
    FrameHandle placeholder_ = newFrame();
};

}  // namespace ornivo
