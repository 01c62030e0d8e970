#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "platform/Bitmap.h"
#include "platform/ClipFrames.h"
#include "platform/FrameTime.h"

namespace ornivo {

/// Looks for frames at several times of a clip. Key frames go first, as they are cheap; with what
/// is then spared, those times are walked to that lie nearest behind a key frame.
class FrameSearch {
public:
    using Take = std::function<std::optional<Bitmap>(const AVFrame&)>;

    /// The clip must outlive the search.
    FrameSearch(ClipFrames& clip, const std::vector<FrameTime>& times, Take take);

    /// What `take` makes of a frame for each time, in the order of the times, which ascend. A time
    /// that has no frame is passed over, and so is one that would cost too much. Where the costs
    /// leave nothing at all, the key frame before the middle time stands for the clip.
    std::vector<Bitmap> bitmaps();

private:
    void takeKeyFrames();
    void walk();

    ClipFrames& clip_;
    Take take_;
    std::vector<FrameWindow> windows_;
    /// For each window.
    std::vector<std::optional<Bitmap>> taken_;
    /// The windows without a key frame.
    std::vector<std::size_t> open_;
    bool wasTooDear_ = false;
};

}  // namespace ornivo
