#pragma once

#include <array>
#include <string_view>

#include "vocabulary/RawValues.h"

namespace ornivo {

/// A short remark on a photograph's technical quality.
enum class QualityTag { soft, verySoft, highISO, underexposed, overexposed, clipped };

template <>
struct RawValues<QualityTag> {
    static constexpr std::array table{
        RawValue<QualityTag>{QualityTag::soft, "soft"},
        RawValue<QualityTag>{QualityTag::verySoft, "verySoft"},
        RawValue<QualityTag>{QualityTag::highISO, "highISO"},
        RawValue<QualityTag>{QualityTag::underexposed, "underexposed"},
        RawValue<QualityTag>{QualityTag::overexposed, "overexposed"},
        RawValue<QualityTag>{QualityTag::clipped, "clipped"},
    };
};

/// The tag as a person reads it.
std::string_view label(QualityTag tag);

}  // namespace ornivo
