#pragma once

namespace ornivo {

/// A moment of a clip, in seconds from its start, and how far from it a frame may begin: from the
/// earliest time on and before the latest, so that times that touch share no frame.
struct FrameTime {
    double earliest;
    double wanted;
    double latest;

    bool operator==(const FrameTime&) const = default;
};

}  // namespace ornivo
