#include "platform/Clip.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/mathematics.h>
#include <libavutil/mem.h>
}

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <utility>

#include "platform/BitmapTransforms.h"
#include "platform/DisplayMatrix.h"
#include "platform/FrameConverter.h"
#include "platform/FrameSearch.h"

namespace ornivo {

namespace fs = std::filesystem;

namespace {

/// Where the moment of capture stands: in the camera's words, in an editor's, in the movie header.
constexpr std::array dateKeys{"com.apple.quicktime.creationdate", "date", "creation_time"};

/// FFmpeg's own name for what stands under `ClipMetadataItem::userDataPosition`.
constexpr std::string_view renamedPosition = "location";

int hasPassed(void* deadline) {
    const auto& time = *static_cast<const std::chrono::steady_clock::time_point*>(deadline);
    return std::chrono::steady_clock::now() >= time ? 1 : 0;
}

/// The file's headers, read as those of a clip whatever its contents look like. Nothing but files
/// can be reached from it.
ContainerHandle opened(const fs::path& file, const AVIOInterruptCB& interrupt) {
    AVFormatContext* container = avformat_alloc_context();
    if (!container) return nullptr;
    container->interrupt_callback = interrupt;
    container->protocol_whitelist = av_strdup("file");
    const std::string address = "file:" + file.string();
    // Frees the container when it fails.
    const int status =
        avformat_open_input(&container, address.c_str(), av_find_input_format("mov"), nullptr);
    return ContainerHandle(status >= 0 ? container : nullptr);
}

/// The container's word on the shape of pixels goes before that of the pictures themselves.
AVRational pixelAspectOf(const AVStream& stream, const AVFrame& frame) {
    const bool isStated = stream.sample_aspect_ratio.num > 0;
    return isStated ? stream.sample_aspect_ratio : frame.sample_aspect_ratio;
}

/// The stream of moving pictures; negative when there is none.
int videoIn(AVFormatContext& container) {
    const int found = av_find_best_stream(&container, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (found < 0) return found;
    const bool isCover = (container.streams[found]->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
    return isCover ? -1 : found;
}

/// Nothing but this stream is read from now on; nothing at all if it is negative.
void readOnly(AVFormatContext& container, int stream) {
    for (unsigned i = 0; i < container.nb_streams; ++i) {
        const bool isWanted = static_cast<int>(i) == stream;
        container.streams[i]->discard = isWanted ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
}

/// Whether the first headers leave out a good part of the pictures, as in a clip that is written in
/// fragments.
bool knowsTooFewPictures(AVFormatContext& container, AVStream& stream) {
    const int count = avformat_index_get_entries_count(&stream);
    if (count == 0 || container.duration <= 0) return true;
    const std::int64_t last = avformat_index_get_entry(&stream, count - 1)->timestamp;
    const std::int64_t known = av_rescale_q(last, stream.time_base, AV_TIME_BASE_Q);
    return known < container.duration - AV_TIME_BASE;
}

/// Goes through the clip, and passes over the pictures themselves.
void readAllHeaders(AVFormatContext& container) {
    readOnly(container, -1);
    const PacketHandle packet = newPacket();
    while (av_read_frame(&container, packet.get()) >= 0) av_packet_unref(packet.get());
}

std::optional<double> durationOf(const AVFormatContext& container, int video) {
    if (container.duration > 0) {
        return static_cast<double>(container.duration) / AV_TIME_BASE;
    }
    if (video < 0 || container.streams[video]->duration <= 0) return std::nullopt;
    const AVStream& stream = *container.streams[video];
    return static_cast<double>(stream.duration) * av_q2d(stream.time_base);
}

/// The nine numbers that tell how the pictures stand on the screen; null when there are none.
const std::uint8_t* displayMatrixOf(const AVStream& stream) {
#if LIBAVFORMAT_VERSION_INT >= AV_VERSION_INT(60, 15, 100)
    const AVCodecParameters& parameters = *stream.codecpar;
    const AVPacketSideData* found = av_packet_side_data_get(
        parameters.coded_side_data, parameters.nb_coded_side_data, AV_PKT_DATA_DISPLAYMATRIX);
    return found && found->size >= 9 * sizeof(std::int32_t) ? found->data : nullptr;
#else
    std::size_t size = 0;
    const auto* data = av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, &size);
    return data && size >= 9 * sizeof(std::int32_t) ? data : nullptr;
#endif
}

std::uint32_t orientationIn(const AVStream& stream) {
    constexpr std::uint32_t upright = 1;
    const std::uint8_t* data = displayMatrixOf(stream);
    if (!data) return upright;
    std::array<std::int32_t, 9> matrix{};
    std::memcpy(matrix.data(), data, sizeof matrix);
    return orientationOf(std::span<const std::int32_t, 9>(matrix));
}

}  // namespace

std::optional<Clip> Clip::open(const fs::path& file, std::chrono::seconds patience) {
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored)) return std::nullopt;
    startFFmpeg();
    auto deadline = std::make_unique<Clock::time_point>(Clock::now() + patience);
    auto container = opened(file, {hasPassed, deadline.get()});
    if (!container) return std::nullopt;
    return Clip(std::move(deadline), std::move(container));
}

Clip::Clip(std::unique_ptr<const Clock::time_point> deadline, ContainerHandle container)
    : deadline_(std::move(deadline)),
      container_(std::move(container)),
      video_(videoIn(*container_)) {
    if (hasVideo() && knowsTooFewPictures(*container_, *container_->streams[video_])) {
        readAllHeaders(*container_);
    }
    duration_ = durationOf(*container_, video_);
    readOnly(*container_, video_);
    if (hasVideo()) frames_ = ClipFrames::of(*container_, video_);
}

Clip::Coding Clip::coding() const {
    if (!hasVideo()) return {};
    const AVCodecParameters& parameters = *container_->streams[video_]->codecpar;
    if (parameters.codec_id == AV_CODEC_ID_NONE) return {};
    Coding coding{avcodec_get_name(parameters.codec_id), std::nullopt};
    // The decoder's configuration begins with its version, 1, and the profile (ISO/IEC 14496-15).
    const bool isStated = parameters.codec_id == AV_CODEC_ID_H264 &&
                          parameters.extradata_size > 1 && parameters.extradata[0] == 1;
    if (isStated) coding.h264Profile = parameters.extradata[1];
    return coding;
}

std::vector<Bitmap> Clip::frames(const std::vector<FrameTime>& times, int maxDimension) {
    if (!frames_) return {};
    const auto take = [=, this](const AVFrame& frame) { return bitmapFrom(frame, maxDimension); };
    return FrameSearch(*frames_, times, take).bitmaps();
}

std::optional<Bitmap> Clip::bitmapFrom(const AVFrame& frame, int maxDimension) const {
    const AVStream& stream = *container_->streams[video_];
    const double pixelAspect = av_q2d(pixelAspectOf(stream, frame));
    const auto stored = bitmapOf(frame, pixelAspect, maxDimension);
    return stored ? std::optional(upright(*stored, orientationIn(stream))) : std::nullopt;
}

std::vector<std::string> Clip::creationDates() const {
    std::vector<std::string> dates;
    for (const char* key : dateKeys) {
        const AVDictionaryEntry* found =
            av_dict_get(container_->metadata, key, nullptr, AV_DICT_MATCH_CASE);
        if (found) dates.emplace_back(found->value);
    }
    return dates;
}

std::vector<ClipMetadataItem> Clip::metadata() const {
    std::vector<ClipMetadataItem> items;
    const AVDictionaryEntry* entry = nullptr;
    while ((entry = av_dict_get(container_->metadata, "", entry, AV_DICT_IGNORE_SUFFIX))) {
        const bool isRenamed = entry->key == renamedPosition;
        items.push_back(
            {isRenamed ? ClipMetadataItem::userDataPosition : entry->key, entry->value});
    }
    return items;
}

}  // namespace ornivo
