#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "vocabulary/IdentifiedSpecies.h"
#include "vocabulary/RawValues.h"

namespace ornivo {

/// Finds the frames that missed the confidence gate although their neighbours in a burst agree on
/// a species that stands in their own short list. Proposes, and changes nothing.
struct BurstResolver {
    /// One classified frame of a run.
    struct Frame {
        /// From the camera's file numbering; two frames may share one.
        std::int64_t sequence = 0;
        /// Capture time in whole seconds.
        std::optional<std::int64_t> second;
        /// Best first.
        std::vector<IdentifiedSpecies::Candidate> candidates;

        bool operator==(const Frame&) const = default;
    };

    enum class Kind {
        /// The frame's own best label is the neighbours' species.
        confirmed,
        /// A lower one is.
        corrected,
    };

    struct Promotion {
        Kind kind = Kind::confirmed;
        /// The promoted frame's.
        std::int64_t sequence = 0;
        /// The frame's own best label.
        std::string from;
        /// The neighbours' species.
        std::string to;
        /// The frame's own confidence in `to`.
        double ownConfidence = 0;
        /// The sequence of the neighbour that is most confident in `to`.
        std::int64_t corroboratedBy = 0;
        /// The place of `to` among the frame's own candidates, from 0.
        int ownRank = 0;

        bool operator==(const Promotion&) const = default;
    };

    /// The limits are raised to 1 where less is given.
    BurstResolver(int window, int secondsWindow, int searchDepth, double gate);

    /// At most one promotion a frame, in the order of time, or of the sequence where a single
    /// frame has no time. Promotions do not count as evidence for one another.
    std::vector<Promotion> resolve(std::vector<Frame> frames) const;

    /// Largest distance between frames in sequence numbers, when times can't be used.
    int window;
    /// Largest distance between frames in seconds, when they can.
    int secondsWindow;
    /// How many of a frame's own best candidates may hold the neighbours' species.
    int searchDepth;
    /// The confidence from which a frame is sure of its species, 0 to 1.
    double gate;
};

template <>
struct RawValues<BurstResolver::Kind> {
    static constexpr std::array table{
        RawValue<BurstResolver::Kind>{BurstResolver::Kind::confirmed, "confirmed"},
        RawValue<BurstResolver::Kind>{BurstResolver::Kind::corrected, "corrected"},
    };
};

}  // namespace ornivo
