#include "media/PhotoQuality.h"

namespace ornivo {
namespace {

constexpr double verySoftBelow = 0.003;
constexpr double softBelow = 0.01;
constexpr std::int64_t highIsoFrom = 3200;
constexpr double underexposedBelow = 0.18;
constexpr double overexposedAbove = 0.82;
constexpr double clippedAbove = 0.05;

}  // namespace

std::vector<QualityTag> PhotoQuality::tags() const {
    std::vector<QualityTag> tags;
    if (sharpness < verySoftBelow) {
        tags.push_back(QualityTag::verySoft);
    } else if (sharpness < softBelow) {
        tags.push_back(QualityTag::soft);
    }
    if (iso && *iso >= highIsoFrom) tags.push_back(QualityTag::highISO);
    if (meanLuminance < underexposedBelow) {
        tags.push_back(QualityTag::underexposed);
    } else if (meanLuminance > overexposedAbove) {
        tags.push_back(QualityTag::overexposed);
    }
    if (clippedHighlights > clippedAbove) tags.push_back(QualityTag::clipped);
    return tags;
}

}  // namespace ornivo
