#include "platform/ClipFrames.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/common.h>
#include <libavutil/mathematics.h>
}

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace ornivo {
namespace {

/// Cameras reach 8192 × 5464.
constexpr std::int64_t mostPixels = 50'000'000;

/// The codecs that a file can reach: those of cameras, telephones and editing programs.
constexpr std::array codecs{AV_CODEC_ID_H264,     AV_CODEC_ID_HEVC,  AV_CODEC_ID_MJPEG,
                            AV_CODEC_ID_PRORES,   AV_CODEC_ID_VP9,   AV_CODEC_ID_AV1,
                            AV_CODEC_ID_MPEG4,    AV_CODEC_ID_H263,  AV_CODEC_ID_MPEG2VIDEO,
                            AV_CODEC_ID_DVVIDEO,  AV_CODEC_ID_DNXHD, AV_CODEC_ID_VP8,
                            AV_CODEC_ID_JPEG2000, AV_CODEC_ID_PNG};

/// FFmpeg 6 gave the field a new name.
template <typename Frame>
std::int64_t durationOf(const Frame& frame) {
    if constexpr (requires { frame.duration; }) {
        return frame.duration;
    } else {
        return frame.pkt_duration;
    }
}

std::int64_t startOf(const AVFrame& frame) {
    return frame.pts != AV_NOPTS_VALUE ? frame.pts : frame.best_effort_timestamp;
}

std::int64_t startOf(const AVPacket& packet) {
    return packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
}

bool isWhole(const AVFrame& frame) {
    return frame.decode_error_flags == 0 && (frame.flags & AV_FRAME_FLAG_CORRUPT) == 0;
}

std::int64_t pixelsOf(const AVCodecParameters& parameters) {
    return std::int64_t{parameters.width} * parameters.height;
}

}  // namespace

std::optional<ClipFrames> ClipFrames::of(AVFormatContext& container, int stream) {
    AVStream& video = *container.streams[stream];
    const AVCodecParameters& parameters = *video.codecpar;
    if (std::ranges::find(codecs, parameters.codec_id) == codecs.end()) return std::nullopt;
    const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
    if (!codec || pixelsOf(parameters) > mostPixels) return std::nullopt;
    auto room = std::make_unique<PictureRoom>();
    DecoderHandle decoder(avcodec_alloc_context3(codec));
    if (!decoder || avcodec_parameters_to_context(decoder.get(), &parameters) < 0) {
        return std::nullopt;
    }
    decoder->pkt_timebase = video.time_base;
    decoder->max_pixels = mostPixels;
    decoder->thread_count = 1;
    room->serve(*decoder);
    if (avcodec_open2(decoder.get(), codec, nullptr) < 0) return std::nullopt;
    return ClipFrames(container, video, std::move(room), std::move(decoder));
}

ClipFrames::ClipFrames(AVFormatContext& container, AVStream& stream,
                       std::unique_ptr<PictureRoom> room, DecoderHandle decoder)
    : container_(&container),
      stream_(&stream),
      room_(std::move(room)),
      decoder_(std::move(decoder)) {}

FrameWindow ClipFrames::windowOf(const FrameTime& time) const {
    const auto units = [this](double seconds) {
        return av_rescale_q(std::llround(seconds * AV_TIME_BASE), AV_TIME_BASE_Q,
                            stream_->time_base);
    };
    return {units(time.earliest), units(time.wanted), units(time.latest)};
}

std::int64_t ClipFrames::pixels() const {
    return pixelsOf(*stream_->codecpar);
}

const AVFrame* ClipFrames::keyFrameIn(const FrameWindow& window) {
    for (const std::int64_t target : {window.wanted, window.latest - 1}) {
        if (!seek(target)) continue;
        const std::int64_t start = startOf(*packet_);
        if (start < window.earliest || start >= window.latest) continue;
        if (const AVFrame* frame = decodeKeyFrame()) return frame;
    }
    return nullptr;
}

const AVFrame* ClipFrames::keyFrameAt(std::int64_t time) {
    return seek(time) ? decodeKeyFrame() : nullptr;
}

const AVFrame* ClipFrames::walkTo(const FrameWindow& window) {
    if (window.earliest >= end_) return nullptr;
    skips_ = true;
    const AVFrame* frame = leadsTo(window) ? decodeUpTo(window) : walkFrom(window.earliest, window);
    reached_ = window.earliest;
    if (!earlier_->buf[0] && !frame) {
        frame = walkFromEarlierKeyFrame(window);
    } else if (frame != frame_.get() && lastSkipped_ > startOf(*earlier_)) {
        // What stands through the window may be among the skipped.
        skips_ = false;
        frame = walkFrom(window.earliest, window);
    }
    if (!frame && !hasPacket_) end_ = window.earliest;
    return frame;
}

/// Whether going on is the shortest way: the time lies ahead, with no key frame in between.
bool ClipFrames::leadsTo(const FrameWindow& window) const {
    if (!isUnderWay_ || !hasPacket_ || window.earliest < reached_) return false;
    const auto keyFrame = index().keyFrameAt(window.earliest);
    return keyFrame && *keyFrame < packet_->dts;
}

const AVFrame* ClipFrames::walkFrom(std::int64_t time, const FrameWindow& window) {
    return seek(time) ? decodeUpTo(window) : nullptr;
}

/// Where pictures are refreshed part by part, the first frames after a key frame are not whole, and
/// a window may hold none but them.
const AVFrame* ClipFrames::walkFromEarlierKeyFrame(const FrameWindow& window) {
    const auto keyFrame = index().keyFrameAt(window.earliest);
    const auto earlier = keyFrame ? index().keyFrameAt(*keyFrame - 1) : std::nullopt;
    return earlier ? walkFrom(*earlier, window) : nullptr;
}

/// Goes on until a frame begins in the window, or until one begins behind it, so that the frame
/// before stood through the whole window. How long the last frame of all stands, it says itself.
const AVFrame* ClipFrames::decodeUpTo(const FrameWindow& window) {
    isUnderWay_ = true;
    do {
        if (!frame_->buf[0]) continue;
        if (startOf(*frame_) >= window.latest) return earlier_->buf[0] ? earlier_.get() : nullptr;
        if (startOf(*frame_) >= window.earliest) return frame_.get();
        std::swap(frame_, earlier_);
    } while (decodeNext(window));
    if (!earlier_->buf[0] || room_->wasTooSmall()) return nullptr;
    const std::int64_t end = av_sat_add64(startOf(*earlier_), durationOf(*earlier_));
    return end > window.earliest ? earlier_.get() : nullptr;
}

/// Decodes the next frame that is whole; false at the end.
bool ClipFrames::decodeNext(const FrameWindow& window) {
    while (!isInterrupted() && !room_->wasTooSmall()) {
        if (avcodec_receive_frame(decoder_.get(), frame_.get()) >= 0) {
            if (isWhole(*frame_)) return true;
        } else if (!sendPacket(window)) {
            return false;
        }
    }
    return false;
}

/// Hands the packet to the decoder, or the end where there is none left; false after the end.
bool ClipFrames::sendPacket(const FrameWindow& window) {
    if (!hasPacket_) {
        isUnderWay_ = false;
        return avcodec_send_packet(decoder_.get(), nullptr) >= 0;
    }
    const bool isSkipped = skips_ && startOf(*packet_) < window.earliest;
    if (isSkipped) lastSkipped_ = std::max(lastSkipped_, startOf(*packet_));
    decoder_->skip_frame = isSkipped ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    // A packet that is damaged fails by itself, and what follows may be sound.
    avcodec_send_packet(decoder_.get(), packet_.get());
    room_->beginFrame();
    readPacket();
    return true;
}

/// Decodes the packet's frame without a look at those that follow, which a decoder would otherwise
/// wait for to put them in order.
const AVFrame* ClipFrames::decodeKeyFrame() {
    decoder_->skip_frame = AVDISCARD_DEFAULT;
    const bool isDecoded = avcodec_send_packet(decoder_.get(), packet_.get()) >= 0 &&
                           avcodec_send_packet(decoder_.get(), nullptr) >= 0 &&
                           avcodec_receive_frame(decoder_.get(), frame_.get()) >= 0;
    return isDecoded && isWhole(*frame_) ? frame_.get() : nullptr;
}

/// Goes to the key frame at or before a time, and reads it.
bool ClipFrames::seek(std::int64_t time) {
    av_frame_unref(frame_.get());
    av_frame_unref(earlier_.get());
    avcodec_flush_buffers(decoder_.get());
    room_->beginKeyFrame();
    isUnderWay_ = false;
    lastSkipped_ = std::numeric_limits<std::int64_t>::min();
    return av_seek_frame(container_, stream_->index, time, AVSEEK_FLAG_BACKWARD) >= 0 &&
           readPacket();
}

/// Reads the next packet that is whole; false at the end.
bool ClipFrames::readPacket() {
    do {
        av_packet_unref(packet_.get());
        hasPacket_ = !isInterrupted() && av_read_frame(container_, packet_.get()) >= 0;
    } while (hasPacket_ && (packet_->stream_index != stream_->index ||
                            (packet_->flags & AV_PKT_FLAG_CORRUPT) != 0));
    return hasPacket_;
}

bool ClipFrames::isInterrupted() const {
    const AVIOInterruptCB& check = container_->interrupt_callback;
    return check.callback && check.callback(check.opaque) != 0;
}

}  // namespace ornivo
