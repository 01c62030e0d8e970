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

}  // namespace

std::optional<ClipFrames> ClipFrames::of(AVFormatContext& container, int stream) {
    AVStream& video = *container.streams[stream];
    const AVCodecParameters& parameters = *video.codecpar;
    if (std::ranges::find(codecs, parameters.codec_id) == codecs.end()) return std::nullopt;
    const std::int64_t pixels = std::int64_t{parameters.width} * parameters.height;
    const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
    if (!codec || pixels > mostPixels) return std::nullopt;
    DecoderHandle decoder(avcodec_alloc_context3(codec));
    if (!decoder || avcodec_parameters_to_context(decoder.get(), &parameters) < 0) {
        return std::nullopt;
    }
    decoder->pkt_timebase = video.time_base;
    decoder->max_pixels = mostPixels;
    decoder->thread_count = 1;
    if (avcodec_open2(decoder.get(), codec, nullptr) < 0) return std::nullopt;
    return ClipFrames(container, video, std::move(decoder));
}

ClipFrames::ClipFrames(AVFormatContext& container, AVStream& stream, DecoderHandle decoder)
    : container_(&container), stream_(&stream), decoder_(std::move(decoder)) {}

const AVFrame* ClipFrames::find(const FrameTime& time) {
    const Window window = windowOf(time);
    const bool isShortest = leadsTo(window);
    reached_ = window.earliest;
    if (isShortest) return decodeUpTo(window);
    for (const std::int64_t target : {window.wanted, window.latest}) {
        if (!seek(target)) return nullptr;
        const std::int64_t start = startOf(*packet_);
        const bool liesWell = start >= window.earliest && start <= window.latest;
        if (liesWell && decodeKeyFrame()) return frame_.get();
    }
    return seek(window.wanted) ? decodeUpTo(window) : nullptr;
}

ClipFrames::Window ClipFrames::windowOf(const FrameTime& time) const {
    const auto units = [this](double seconds) {
        return av_rescale_q(std::llround(seconds * AV_TIME_BASE), AV_TIME_BASE_Q,
                            stream_->time_base);
    };
    return {units(time.earliest), units(time.wanted), units(time.latest)};
}

/// Whether going on is the shortest way: the time lies ahead, with no key frame in between.
bool ClipFrames::leadsTo(const Window& window) const {
    if (!isUnderWay_ || !hasPacket_ || window.earliest < reached_) return false;
    const AVIndexEntry* key =
        avformat_index_get_entry_from_timestamp(stream_, window.wanted, AVSEEK_FLAG_BACKWARD);
    return key && key->timestamp < packet_->dts;
}

/// Goes to the key frame at or before a time, and reads it.
bool ClipFrames::seek(std::int64_t time) {
    av_frame_unref(frame_.get());
    av_frame_unref(earlier_.get());
    avcodec_flush_buffers(decoder_.get());
    isUnderWay_ = false;
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

/// Hands the packet to the decoder, or the end where there is none left; false after the end.
bool ClipFrames::sendPacket(const Window& window) {
    if (!hasPacket_) {
        isUnderWay_ = false;
        return avcodec_send_packet(decoder_.get(), nullptr) >= 0;
    }
    // What comes too early, and nothing else is built on, need not be decoded.
    const bool isEarly = startOf(*packet_) < window.earliest;
    decoder_->skip_frame = isEarly ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    // A packet that is damaged fails by itself, and what follows may be sound.
    avcodec_send_packet(decoder_.get(), packet_.get());
    readPacket();
    return true;
}

/// Decodes the next frame that is whole; false at the end.
bool ClipFrames::decodeNext(const Window& window) {
    while (!isInterrupted()) {
        if (avcodec_receive_frame(decoder_.get(), frame_.get()) >= 0) {
            if (isWhole(*frame_)) return true;
        } else if (!sendPacket(window)) {
            return false;
        }
    }
    return false;
}

/// Decodes the packet's frame without a look at those that follow, which a decoder would otherwise
/// wait for to put them in order.
bool ClipFrames::decodeKeyFrame() {
    decoder_->skip_frame = AVDISCARD_DEFAULT;
    return avcodec_send_packet(decoder_.get(), packet_.get()) >= 0 &&
           avcodec_send_packet(decoder_.get(), nullptr) >= 0 &&
           avcodec_receive_frame(decoder_.get(), frame_.get()) >= 0 && isWhole(*frame_);
}

/// Goes on until a frame begins in the window, or until one begins behind it, so that the frame
/// before stood through the whole window. How long the last frame of all stands, it says itself.
const AVFrame* ClipFrames::decodeUpTo(const Window& window) {
    isUnderWay_ = true;
    do {
        if (!frame_->buf[0]) continue;
        if (startOf(*frame_) > window.latest) return earlier_->buf[0] ? earlier_.get() : nullptr;
        if (startOf(*frame_) >= window.earliest) return frame_.get();
        std::swap(frame_, earlier_);
    } while (decodeNext(window));
    if (!earlier_->buf[0]) return nullptr;
    const std::int64_t end = av_sat_add64(startOf(*earlier_), durationOf(*earlier_));
    return end > window.earliest ? earlier_.get() : nullptr;
}

bool ClipFrames::isInterrupted() const {
    const AVIOInterruptCB& check = container_->interrupt_callback;
    return check.callback && check.callback(check.opaque) != 0;
}

}  // namespace ornivo
