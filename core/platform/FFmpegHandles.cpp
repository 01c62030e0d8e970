#include "platform/FFmpegHandles.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

#include <cstddef>
#include <new>

namespace ornivo {
namespace {

/// The largest picture that a clip may hold takes 200 MB at its deepest; a day of film has an
/// index of 130 MB.
constexpr std::size_t largestAllocation = std::size_t{256} << 20U;

template <typename Handle>
Handle made(Handle handle) {
    if (!handle) throw std::bad_alloc();
    return handle;
}

}  // namespace

void FFmpegFree::operator()(AVCodecContext* decoder) const {
    avcodec_free_context(&decoder);
}

void FFmpegFree::operator()(AVFormatContext* container) const {
    avformat_close_input(&container);
}

void FFmpegFree::operator()(AVFrame* frame) const {
    av_frame_free(&frame);
}

void FFmpegFree::operator()(AVPacket* packet) const {
    av_packet_free(&packet);
}

void startFFmpeg() {
    static const bool started = [] {
        av_log_set_level(AV_LOG_QUIET);
        av_max_alloc(largestAllocation);
        return true;
    }();
    (void)started;
}

FrameHandle newFrame() {
    return made(FrameHandle(av_frame_alloc()));
}

PacketHandle newPacket() {
    return made(PacketHandle(av_packet_alloc()));
}

}  // namespace ornivo
