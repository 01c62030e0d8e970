#include "media/BurstResolver.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "platform/Text.h"

namespace ornivo {
namespace {

using Frame = BurstResolver::Frame;
using Promotion = BurstResolver::Promotion;

/// What the confident neighbours of a frame say for one label.
struct Tally {
    int votes = 0;
    double best = 0;
    /// The sequence of the neighbour with the best confidence; of equals, the one met first.
    std::int64_t corroboratedBy = 0;
};
using Tallies = std::map<std::string_view, Tally>;

/// The sorted frames and how far a frame's neighbours reach.
struct Burst {
    std::vector<Frame> frames;
    bool bySecond;
    std::uint64_t limit;
    double gate;

    std::int64_t position(const Frame& frame) const {
        return bySecond ? *frame.second : frame.sequence;
    }

    /// Whether two frames, the earlier first, are near enough. Counted without a sign, as the
    /// distance of two numbers may be too large for one with.
    bool reaches(const Frame& earlier, const Frame& later) const {
        return static_cast<std::uint64_t>(position(later)) -
                   static_cast<std::uint64_t>(position(earlier)) <=
               limit;
    }

    bool isConfident(const Frame& frame) const {
        return !frame.candidates.empty() && !(frame.candidates.front().confidence < gate);
    }
};

void vote(Tallies& tallies, const Frame& neighbour) {
    const auto& [label, confidence] = neighbour.candidates.front();
    Tally& tally = tallies[label];
    if (tally.votes == 0 || confidence > tally.best) {
        tally.best = confidence;
        tally.corroboratedBy = neighbour.sequence;
    }
    ++tally.votes;
}

/// The votes on both sides of the frame at `index`, the earlier frames first, the nearest of each
/// side first.
Tallies neighboursOf(const Burst& burst, std::size_t index) {
    Tallies tallies;
    const Frame& frame = burst.frames[index];
    for (std::size_t i = index; i-- > 0 && burst.reaches(burst.frames[i], frame);) {
        if (burst.isConfident(burst.frames[i])) vote(tallies, burst.frames[i]);
    }
    for (std::size_t i = index + 1;
         i < burst.frames.size() && burst.reaches(frame, burst.frames[i]); ++i) {
        if (burst.isConfident(burst.frames[i])) vote(tallies, burst.frames[i]);
    }
    return tallies;
}

/// Whether `a` has the better claim: more votes, then more confidence, then the earlier name.
bool outranks(const Tallies::value_type& a, const Tallies::value_type& b) {
    if (a.second.votes != b.second.votes) return a.second.votes > b.second.votes;
    if (a.second.best != b.second.best) return a.second.best > b.second.best;
    return plainTextLess(a.first, b.first);
}

std::optional<Promotion> promotion(const Frame& frame, const Tallies& tallies, int searchDepth) {
    if (tallies.empty()) return std::nullopt;
    const auto& winner = *std::ranges::min_element(tallies, outranks);
    const std::string_view species = winner.first;

    const auto& own = frame.candidates;
    const auto depth = std::min(own.size(), static_cast<std::size_t>(searchDepth));
    const auto end = own.begin() + static_cast<std::ptrdiff_t>(depth);
    const auto found = std::find_if(
        own.begin(), end, [&](const auto& candidate) { return candidate.label == species; });
    if (found == end) return std::nullopt;

    const std::string& best = own.front().label;
    return Promotion{
        .kind = species == best ? BurstResolver::Kind::confirmed : BurstResolver::Kind::corrected,
        .sequence = frame.sequence,
        .from = best,
        .to = found->label,
        .ownConfidence = found->confidence,
        .corroboratedBy = winner.second.corroboratedBy,
        .ownRank = static_cast<int>(found - own.begin()),
    };
}

}  // namespace

BurstResolver::BurstResolver(int windowInFrames, int windowInSeconds, int depth,
                             double confidenceGate)
    : window(std::max(windowInFrames, 1)),
      secondsWindow(std::max(windowInSeconds, 1)),
      searchDepth(std::max(depth, 1)),
      gate(confidenceGate) {}

std::vector<Promotion> BurstResolver::resolve(std::vector<Frame> frames) const {
    // One frame without a time puts all of them on the other axis: times and numbers don't mix.
    const bool bySecond =
        std::ranges::all_of(frames, [](const Frame& frame) { return frame.second.has_value(); });
    Burst burst{std::move(frames), bySecond,
                static_cast<std::uint64_t>(bySecond ? secondsWindow : window), gate};
    std::ranges::stable_sort(burst.frames, {}, [&](const Frame& frame) {
        return std::pair(burst.position(frame), frame.sequence);
    });

    std::vector<Promotion> promotions;
    for (std::size_t i = 0; i < burst.frames.size(); ++i) {
        const Frame& frame = burst.frames[i];
        if (frame.candidates.empty() || burst.isConfident(frame)) continue;
        if (const auto found = promotion(frame, neighboursOf(burst, i), searchDepth)) {
            promotions.push_back(*found);
        }
    }
    return promotions;
}

}  // namespace ornivo
