#pragma once

namespace ornivo {

/// A moment of a clip, in seconds from its start, and how far from it a frame may lie.
struct FrameTime {
    double earliest;
    double wanted;
    double latest;

    bool operator==(const FrameTime&) const = default;
};

}  // namespace ornivo
