#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/ClipIndex.h"
#include "platform/FrameWindow.h"

namespace ornivo {

/// What may be spent on a clip whose pictures have so many pixels, in the decodings of one of its
/// key frames. It is the same on every machine.
double effortWorthSpending(std::int64_t pixels);

/// Which of the open ones among a clip's windows, which ascend, can be walked to for an effort, in
/// time order. The shortest ways from a key frame go first.
std::vector<std::size_t> affordableWalks(const ClipIndex& index,
                                         const std::vector<FrameWindow>& windows,
                                         const std::vector<std::size_t>& open, double effort);

}  // namespace ornivo
