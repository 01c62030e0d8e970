#include "platform/PictureRoom.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/buffer.h>
#include <libavutil/error.h>
#include <libavutil/frame.h>
}

#include <algorithm>
#include <span>

namespace ornivo {
namespace {

/// A walk through 4K in eight bits needs most of this.
constexpr double mostBytes = 150e6;

/// With what codecs remember about each picture's motion.
double bytesFor(const AVFrame& frame) {
    double bytes = 0.75 * frame.width * frame.height;
    for (const AVBufferRef* buffer : std::span(frame.buf)) {
        if (buffer) bytes += static_cast<double>(buffer->size);
    }
    return bytes;
}

bool haveSameForm(const AVFrame& a, const AVFrame& b) {
    return a.width == b.width && a.height == b.height && a.format == b.format;
}

/// Lets a frame lie where another lies; false when memory runs out.
bool placeUpon(AVFrame& frame, const AVFrame& other) {
    std::ranges::copy(other.data, frame.data);
    std::ranges::copy(other.linesize, frame.linesize);
    frame.extended_data = frame.data;
    for (std::size_t i = 0; i < std::size(other.buf) && other.buf[i]; ++i) {
        frame.buf[i] = av_buffer_ref(other.buf[i]);
        if (!frame.buf[i]) return false;
    }
    return true;
}

}  // namespace

void PictureRoom::serve(AVCodecContext& decoder) {
    decoder.opaque = this;
    decoder.get_buffer2 = handOut;
}

void PictureRoom::beginKeyFrame() {
    av_frame_unref(placeholder_.get());
    ofKeyFrame_ = 0;
    isKeyFrame_ = true;
}

void PictureRoom::beginFrame() {
    av_frame_unref(placeholder_.get());
    isKeyFrame_ = false;
}

int PictureRoom::handOut(AVCodecContext* decoder, AVFrame* frame, int flags) {
    return static_cast<PictureRoom*>(decoder->opaque)->handOut(*decoder, *frame, flags);
}

int PictureRoom::handOut(AVCodecContext& decoder, AVFrame& frame, int flags) {
    const bool isPlaceholder =
        isKeyFrame_ && ++ofKeyFrame_ > 1 && decoder.codec_id == AV_CODEC_ID_HEVC;
    if (isPlaceholder && placeholder_->buf[0] && haveSameForm(frame, *placeholder_)) {
        return placeUpon(frame, *placeholder_) ? 0 : AVERROR(ENOMEM);
    }
    const int status = avcodec_default_get_buffer2(&decoder, &frame, flags);
    if (status < 0) return status;
    // Lives as long as the picture, wherever the decoder refers to it.
    frame.opaque_ref = av_buffer_create(nullptr, 0, takeBack, this, 0);
    if (!frame.opaque_ref) return AVERROR(ENOMEM);
    ++handedOut_;
    const bool isTooMuch = !isKeyFrame_ && handedOut_ * bytesFor(frame) > mostBytes;
    if (isTooMuch) {
        wasTooSmall_ = true;
        return AVERROR(ENOMEM);
    }
    if (isPlaceholder && !placeholder_->buf[0]) return av_frame_ref(placeholder_.get(), &frame);
    return 0;
}

void PictureRoom::takeBack(void* room, std::uint8_t*) {
    --static_cast<PictureRoom*>(room)->handedOut_;
}

}  // namespace ornivo
