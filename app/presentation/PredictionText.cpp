#include "app/presentation/PredictionText.h"

#include <cmath>

#include "app/presentation/ScreenTexts.h"
#include "identification/BirdClassifierLabels.h"
#include "identification/CallLevel.h"

namespace ornivo::app {
namespace {

using Tone = TonedText::Tone;

Tone toneOf(const std::string& grade) {
    if (grade == "High") return Tone::Accent;
    return grade == "Good" ? Tone::SoftAccent : Tone::Warn;
}

}  // namespace

TonedText confidenceBadge(const IdentifiedSpecies& prediction, double gate) {
    const std::string grade = confidenceLabel(prediction, gate);
    return {shown(grade) + QStringLiteral(" confidence"), toneOf(grade)};
}

PredictionText predictionText(const std::optional<IdentifiedSpecies>& prediction,
                              const QString& notice, double gate) {
    if (prediction && prediction->confidence() >= PredictionText::displayFloor) {
        const long percent = std::lround(prediction->confidence() * 100);
        return {.name = shown(displayName(*prediction)),
                .confidence = QStringLiteral("%1% confidence").arg(percent),
                .notice = {},
                .badge = confidenceBadge(*prediction, gate)};
    }
    return {.name = {},
            .confidence = {},
            .notice = notice.isEmpty() ? QStringLiteral("No confirmed call on this one") : notice,
            .badge = {}};
}

}  // namespace ornivo::app
