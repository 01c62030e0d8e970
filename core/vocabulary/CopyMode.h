#pragma once

#include <array>

#include "vocabulary/RawValues.h"

namespace ornivo {

/// What happens to a source file once it has been filed: it stays where it was, or goes to the
/// system's trash.
enum class CopyMode { keep, trashOriginal };

template <>
struct RawValues<CopyMode> {
    static constexpr std::array table{
        RawValue<CopyMode>{CopyMode::keep, "keep"},
        RawValue<CopyMode>{CopyMode::trashOriginal, "delete"},
    };
};

}  // namespace ornivo
