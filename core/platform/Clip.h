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
/// No file can hold a caller up for ever: two minutes after its opening, nothing more is read.
class Clip {
public:
    /// Absent when the file can't be read or its headers make no clip.
    static std::optional<Clip> open(const std::filesystem::path& file);

    /// In seconds: what the file states, or else what its pictures take. Absent where neither says.
    std::optional<double> duration() const { return duration_; }

    /// Whether there are moving pictures beside sound and cover art.
    bool hasVideo() const { return video_ >= 0; }

    /// A frame that the clip shows between the earliest and the latest time, the wanted one or a
    /// key frame near it: upright, in sRGB, with square pixels, the longer side at most
    /// `maxDimension` pixels. Absent when there is none that can be decoded. Quickest when each
    /// time lies after the one before.
    std::optional<Bitmap> frame(const FrameTime& time, int maxDimension);

    /// The texts that tell when the clip was made, as the file has them, the most trustworthy
    /// first.
    std::vector<std::string> creationDates() const;

    /// What the file as a whole states about itself, in its own order.
    std::vector<ClipMetadataItem> metadata() const;

private:
    using Clock = std::chrono::steady_clock;

    explicit Clip(std::unique_ptr<const Clock::time_point> deadline, ContainerHandle container);

    /// In the heap, where FFmpeg finds it however often the clip is moved.
    std::unique_ptr<const Clock::time_point> deadline_;
    ContainerHandle container_;
    int video_;
    std::optional<double> duration_;
    std::optional<ClipFrames> frames_;
};

}  // namespace ornivo
