#include "identification/CallLevel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "identification/BirdClassifierLabels.h"

namespace ornivo {
namespace {

struct Row {
    double gate;
    const char* title;
    const char* blurb;
    double measuredUnknownMisfileRate;
    const char* caution;
    bool cautionIsWarning;
};

constexpr std::array<Row, 3> rows{{
    {0.6, "Confirmed", "only what it's certain of", 0.11, nullptr, false},
    {0.45, "Most likely", "its strong calls too", 0.172,
     "Measured: about 17% of birds outside the model land under a look-alike, against 11% at "
     "Confirmed — and 27% where the bird has a close relative in the model. Worth a glance over "
     "what gets named.",
     false},
    {0.3, "Probable", "the widest net", 0.285,
     "Measured: nearly 30% of birds outside the model get the wrong name — over 40% for a bird "
     "with a close relative in the model. Good for a first pass you intend to check, not for an "
     "archive you intend to trust.",
     true},
}};

const Row& row(CallLevel level) {
    return rows[static_cast<std::size_t>(level)];
}

}  // namespace

double gate(CallLevel level) {
    return row(level).gate;
}

int slider(CallLevel level) {
    return 48 - 24 * static_cast<int>(level);
}

std::string title(CallLevel level) {
    return row(level).title;
}

std::string blurb(CallLevel level) {
    return row(level).blurb;
}

double measuredUnknownMisfileRate(CallLevel level) {
    return row(level).measuredUnknownMisfileRate;
}

std::optional<std::string> caution(CallLevel level) {
    const char* const words = row(level).caution;
    return words ? std::optional<std::string>(words) : std::nullopt;
}

bool cautionIsWarning(CallLevel level) {
    return row(level).cautionIsWarning;
}

ConfidencePolicy policy(CallLevel level) {
    return {.speciesThreshold = gate(level), .topK = 3};
}

std::optional<CallLevel> callLevelMatching(double gate) {
    constexpr double tolerance = 0.001;
    constexpr auto levels = allCases<CallLevel>();
    const auto found = std::ranges::find_if(
        levels, [&](CallLevel level) { return std::abs(row(level).gate - gate) < tolerance; });
    return found == levels.end() ? std::nullopt : std::optional(*found);
}

std::string confidenceLabel(const IdentifiedSpecies& species, double gate) {
    return BirdClassifierLabels::confidenceLabel(species.confidence(), gate);
}

}  // namespace ornivo
