#include "platform/FrameSearch.h"

#include <utility>

#include "platform/WalkPlan.h"

namespace ornivo {

FrameSearch::FrameSearch(ClipFrames& clip, const std::vector<FrameTime>& times, Take take)
    : clip_(clip), take_(std::move(take)), taken_(times.size()) {
    for (const FrameTime& time : times) windows_.push_back(clip.windowOf(time));
}

std::vector<Bitmap> FrameSearch::bitmaps() {
    takeKeyFrames();
    walk();
    std::vector<Bitmap> bitmaps;
    for (auto& bitmap : taken_) {
        if (bitmap) bitmaps.push_back(*std::move(bitmap));
    }
    if (!bitmaps.empty() || !wasTooDear_) return bitmaps;
    const AVFrame* frame = clip_.keyFrameAt(windows_[windows_.size() / 2].wanted);
    if (auto bitmap = frame ? take_(*frame) : std::nullopt) bitmaps.push_back(*std::move(bitmap));
    return bitmaps;
}

void FrameSearch::takeKeyFrames() {
    for (std::size_t i = 0; i < windows_.size(); ++i) {
        const AVFrame* frame = clip_.keyFrameIn(windows_[i]);
        if (frame) {
            taken_[i] = take_(*frame);
        } else {
            open_.push_back(i);
        }
    }
}

void FrameSearch::walk() {
    const auto keyFrames = static_cast<double>(windows_.size() - open_.size());
    const double effort = effortWorthSpending(clip_.pixels()) - keyFrames;
    const auto walks = affordableWalks(clip_.index(), windows_, open_, effort);
    for (const std::size_t i : walks) {
        if (const AVFrame* frame = clip_.walkTo(windows_[i])) taken_[i] = take_(*frame);
    }
    wasTooDear_ = walks.size() < open_.size() || clip_.lackedMemory();
}

}  // namespace ornivo
