#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "media/QualityTag.h"

namespace ornivo {

/// A technical reading of a photograph.
struct PhotoQuality {
    /// The second-highest variance of the Laplacian over sample tiles, on pixel values 0 to 1.
    double sharpness = 0;
    /// Mean of the sampled grey values, 0 to 1.
    double meanLuminance = 0;
    /// Share of sampled pixels that are white, or within one step of it.
    double clippedHighlights = 0;
    /// Share of sampled pixels that are black, or within one step of it.
    double clippedShadows = 0;
    std::optional<std::int64_t> iso;

    bool operator==(const PhotoQuality&) const = default;

    /// What a person should know of the photograph, in this order: focus, sensitivity, exposure,
    /// lost highlights. Lost shadows give no tag.
    std::vector<QualityTag> tags() const;
};

}  // namespace ornivo
