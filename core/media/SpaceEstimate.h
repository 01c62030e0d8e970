#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "vocabulary/RawValues.h"

namespace ornivo {

/// What a run will need on the destination's volume, against what is free there. Sizes in bytes.
struct SpaceEstimate {
    enum class Verdict {
        /// Copies share storage with the originals.
        clones,
        /// Enough room, with at least two gigabytes to spare.
        fits,
        /// Enough room, with less than that to spare.
        tight,
        doesNotFit,
    };

    /// The size of what is to be copied.
    std::int64_t photographBytes = 0;
    /// What the copies will take up.
    std::int64_t requiredBytes = 0;
    std::int64_t availableBytes = 0;
    std::optional<std::string> destinationVolumeName = std::nullopt;
    Verdict verdict = Verdict::fits;

    bool willClone() const { return verdict == Verdict::clones; }
    /// What is missing; 0 where nothing is.
    std::int64_t shortfallBytes() const;
    /// One sentence or two for the user, sizes as a locale writes them; without one, as the user's
    /// locale does.
    std::string advice(const std::string& locale = {}) const;

    bool operator==(const SpaceEstimate&) const = default;
};

template <>
struct RawValues<SpaceEstimate::Verdict> {
    using Verdict = SpaceEstimate::Verdict;
    static constexpr std::array table{
        RawValue<Verdict>{Verdict::clones, "clones"},
        RawValue<Verdict>{Verdict::fits, "fits"},
        RawValue<Verdict>{Verdict::tight, "tight"},
        RawValue<Verdict>{Verdict::doesNotFit, "doesNotFit"},
    };
};

}  // namespace ornivo
