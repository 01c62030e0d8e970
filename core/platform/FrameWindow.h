#pragma once

#include <cstdint>

namespace ornivo {

/// When a frame may begin, in units of its stream: from the earliest time on and before the latest.
struct FrameWindow {
    std::int64_t earliest;
    std::int64_t wanted;
    std::int64_t latest;
};

}  // namespace ornivo
