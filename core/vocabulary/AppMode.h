#pragma once

#include <array>

#include "vocabulary/RawValues.h"

namespace ornivo {

/// A Sort run files every shot under its species; a Find run copies only the shots that match
/// chosen species.
enum class AppMode { sort, find };

template <>
struct RawValues<AppMode> {
    static constexpr std::array table{
        RawValue<AppMode>{AppMode::sort, "sort"},
        RawValue<AppMode>{AppMode::find, "find"},
    };
};

}  // namespace ornivo
