#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Bitmap.h"
#include "platform/ClipFrames.h"
#include "platform/ClipMetadataItem.h"
#include "platform/FrameTime.h"

namespace ornivo {

/// A QuickTime or MP4 file that stands open. Not for several threads at once; different clips
/// share nothing.
///
/// No file can hold a caller up for ever: when the patience with it is at an end, nothing more is
/// read. What sound clips cost is bounded otherwise, so that none comes near it.
class Clip {
public:
    /// Absent when the file can't be read or its headers make no clip.
    static std::optional<Clip> open(const std::filesystem::path& file,
                                    std::chrono::seconds patience = std::chrono::minutes(2));

    /// In seconds: what the file states, or else what its pictures take. Absent where neither says.
    std::optional<double> duration() const { return duration_; }

    /// Whether there are moving pictures beside sound and cover art.
    bool hasVideo() const { return video_ >= 0; }

    /// How the moving pictures are coded: FFmpeg's name of the codec, as "h264" or "hevc", empty
    /// where it is unknown or there are none; of H.264 the profile as well (ISO/IEC 14496-10,
    /// profile_idc), where the container states it.
    struct Coding {
        std::string codec;
        std::optional<int> h264Profile;
    };
    Coding coding() const;

    /// Frames for times that ascend, in their order: for each a key frame in between its earliest
    /// and its latest, or else a frame that the clip shows there. They are upright, in sRGB, with
    /// square pixels, the longer side at most `maxDimension` pixels.
    ///
    /// A time without a frame that can be decoded is passed over. So are times far behind any key
    /// frame where pictures are very large or the way is very long; should that leave nothing, the
    /// key frame before the middle time stands for the clip. The same clip gives the same frames on
    /// every machine.
    std::vector<Bitmap> frames(const std::vector<FrameTime>& times, int maxDimension);

    /// The texts that tell when the clip was made, as the file has them, the most trustworthy
    /// first.
    std::vector<std::string> creationDates() const;

    /// What the file as a whole states about itself, in its own order.
    std::vector<ClipMetadataItem> metadata() const;

private:
    using Clock = std::chrono::steady_clock;

    explicit Clip(std::unique_ptr<const Clock::time_point> deadline, ContainerHandle container);

    std::optional<Bitmap> bitmapFrom(const AVFrame& frame, int maxDimension) const;

    /// In the heap, where FFmpeg finds it however often the clip is moved.
    std::unique_ptr<const Clock::time_point> deadline_;
    ContainerHandle container_;
    int video_;
    std::optional<double> duration_;
    std::optional<ClipFrames> frames_;
};

}  // namespace ornivo
