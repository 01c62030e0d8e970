#include "vocabulary/ConfidencePolicy.h"

#include <algorithm>
#include <cmath>

namespace ornivo {
namespace {

constexpr double lowest = 0.3;
constexpr double bend = 0.8;
constexpr double highest = 0.95;

}  // namespace

// Both directions keep this order of evaluation: stored gates are compared with freshly computed
// ones, and another order rounds differently.

double ConfidencePolicy::threshold(int slider) {
    const double position = std::clamp(slider, 0, 100);
    if (position <= 80) return position / 80 * 0.5 + lowest;
    return (position - 80) / 20 * 0.15 + bend;
}

int ConfidencePolicy::sliderPosition(double threshold) {
    double t = threshold;
    if (t < lowest) t = lowest;
    if (t >= highest) t = highest;
    if (t <= bend) return static_cast<int>(std::round((t - lowest + (t - lowest)) * 80));
    return static_cast<int>(std::round((t - bend) / 0.15 * 20 + 80));
}

}  // namespace ornivo
