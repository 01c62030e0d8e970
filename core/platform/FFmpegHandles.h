#pragma once

#include <memory>

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVPacket;

/// How this folder works with FFmpeg; nothing outside it includes this.
namespace ornivo {

struct FFmpegFree {
    void operator()(AVCodecContext* decoder) const;
    void operator()(AVFormatContext* container) const;
    void operator()(AVFrame* frame) const;
    void operator()(AVPacket* packet) const;
};

using DecoderHandle = std::unique_ptr<AVCodecContext, FFmpegFree>;
using ContainerHandle = std::unique_ptr<AVFormatContext, FFmpegFree>;
using FrameHandle = std::unique_ptr<AVFrame, FFmpegFree>;
using PacketHandle = std::unique_ptr<AVPacket, FFmpegFree>;

/// Sets FFmpeg up, at the first call, the way this program wants it: no message on any terminal,
/// and a bound on what one table or picture of a file may take.
void startFFmpeg();

/// Raise `std::bad_alloc` when memory runs out.
FrameHandle newFrame();
PacketHandle newPacket();

}  // namespace ornivo
