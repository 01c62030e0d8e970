#pragma once

namespace ornivo {

/// What counts as a confident call.
struct ConfidencePolicy {
    /// The gate: a shot whose top confidence is at or above it is called.
    double speciesThreshold = 0.5375;
    /// How many candidates an answer keeps.
    int topK = 3;

    /// The slider position whose threshold is the default one.
    static constexpr int defaultSlider = 38;

    /// The gate for a slider position. The positions 0 to 100, to which others are clamped, lie on
    /// two straight pieces: the first 80 cover 0.3 to 0.8, the last 20 cover 0.8 to 0.95.
    static double threshold(int slider);

    /// The slider position, 0 to 100, nearest to a gate.
    static int sliderPosition(double threshold);

    bool operator==(const ConfidencePolicy&) const = default;
};

}  // namespace ornivo
