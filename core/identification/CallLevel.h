#pragma once

#include <array>
#include <optional>
#include <string>

#include "vocabulary/ConfidencePolicy.h"
#include "vocabulary/IdentifiedSpecies.h"
#include "vocabulary/RawValues.h"

namespace ornivo {

/// Three named points on the confidence slider, the strictest first. The raw values are stored;
/// the titles, which the user reads, are one step off them on purpose.
enum class CallLevel { confirmed, probable, possible };

template <>
struct RawValues<CallLevel> {
    static constexpr std::array table{
        RawValue<CallLevel>{CallLevel::confirmed, "confirmed"},
        RawValue<CallLevel>{CallLevel::probable, "probable"},
        RawValue<CallLevel>{CallLevel::possible, "possible"},
    };
};

/// The confidence from which on a shot is called.
double gate(CallLevel level);
/// The position on the slider, 0 to 100, whose gate this is.
int slider(CallLevel level);
std::string title(CallLevel level);
std::string blurb(CallLevel level);

/// The share, 0 to 1, of birds outside the model that still get filed under some species.
double measuredUnknownMisfileRate(CallLevel level);
/// What the user should know of that share; absent at the strictest level.
std::optional<std::string> caution(CallLevel level);
/// Whether the caution is to be shown as a warning.
bool cautionIsWarning(CallLevel level);

/// The policy with the level's gate.
ConfidencePolicy policy(CallLevel level);

/// The level whose gate this is, but for rounding. Absent for a gate between the levels, which is
/// as good as any.
std::optional<CallLevel> callLevelMatching(double gate);

/// How sure an answer is, seen from a gate: "High", "Good", or "Low" for one below it.
std::string confidenceLabel(const IdentifiedSpecies& species, double gate);

}  // namespace ornivo
