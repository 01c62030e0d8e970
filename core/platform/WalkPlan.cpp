#include "platform/WalkPlan.h"

#include <algorithm>
#include <optional>

namespace ornivo {
namespace {

struct Way {
    std::size_t window;
    double effort;
    /// When the window before it, behind the same key frame, has been reached.
    double effortFromThere;
};

std::vector<Way> waysTo(const ClipIndex& index, const std::vector<FrameWindow>& windows,
                        const std::vector<std::size_t>& open) {
    std::vector<Way> ways;
    std::optional<std::int64_t> last;
    for (const std::size_t i : open) {
        const auto keyFrame = index.keyFrameAt(windows[i].earliest);
        if (!keyFrame) continue;
        const double effort = index.effort(*keyFrame, windows[i].earliest);
        const double done = keyFrame == last ? ways.back().effort : 0;
        ways.push_back({i, effort, effort - done});
        last = keyFrame;
    }
    return ways;
}

}  // namespace

double effortWorthSpending(std::int64_t pixels) {
    constexpr std::int64_t leastOfLarge = 3840 * 2160;
    constexpr double forLarge = 24;
    // Smaller pictures take little time, and edited clips have their key frames far apart.
    constexpr double pixelsForSmaller = 1.5e9;
    return pixels >= leastOfLarge ? forLarge : pixelsForSmaller / static_cast<double>(pixels);
}

std::vector<std::size_t> affordableWalks(const ClipIndex& index,
                                         const std::vector<FrameWindow>& windows,
                                         const std::vector<std::size_t>& open, double effort) {
    auto ways = waysTo(index, windows, open);
    // A window is thus never chosen without those on the way to it.
    std::ranges::stable_sort(ways, {}, &Way::effort);
    std::vector<std::size_t> chosen;
    for (const Way& way : ways) {
        effort -= way.effortFromThere;
        if (effort < 0) break;
        chosen.push_back(way.window);
    }
    std::ranges::sort(chosen);
    return chosen;
}

}  // namespace ornivo
