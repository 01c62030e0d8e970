#pragma once

#include <array>

#include "vocabulary/RawValues.h"

namespace ornivo {

/// How far a frame that missed the gate may take its species from its burst.
enum class BurstInheritance {
    /// No burst pass.
    off,
    /// Only when the frame's own best guess is the neighbours' species.
    confirmedOnly,
    /// Also when a lower guess of the frame is.
    confirmedAndCorrected,
};

template <>
struct RawValues<BurstInheritance> {
    static constexpr std::array table{
        RawValue<BurstInheritance>{BurstInheritance::off, "off"},
        RawValue<BurstInheritance>{BurstInheritance::confirmedOnly, "confirmedOnly"},
        RawValue<BurstInheritance>{BurstInheritance::confirmedAndCorrected,
                                   "confirmedAndCorrected"},
    };
};

}  // namespace ornivo
