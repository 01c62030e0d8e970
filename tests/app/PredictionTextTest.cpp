#include "app/presentation/PredictionText.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

using Tone = TonedText::Tone;

IdentifiedSpecies eagle(double confidence) {
    const IdentifiedSpecies::Candidate top{"Haliaeetus_leucocephalus", confidence};
    return {top, {top}};
}

TEST(PredictionText, NamesABirdFromTheFloorOn) {
    EXPECT_EQ(predictionText(eagle(0.4), "Low confidence", 0.6),
              (PredictionText{"Bald Eagle", "40% confidence", "", {"Low confidence", Tone::Warn}}));
}

TEST(PredictionText, RoundsTheConfidence) {
    EXPECT_EQ(predictionText(eagle(0.875), "", 0.5).confidence, "88% confidence");
    EXPECT_EQ(predictionText(eagle(1), "", 0.5).confidence, "100% confidence");
}

TEST(PredictionText, BelowTheFloorGivesTheNotice) {
    EXPECT_EQ(predictionText(eagle(0.399), "Too dark.", 0.3),
              (PredictionText{"", "", "Too dark.", {}}));
}

TEST(PredictionText, BelowTheFloorWithoutANoticeSaysSoWithNoBadge) {
    EXPECT_EQ(predictionText(eagle(0.39), "", 0.3),
              (PredictionText{"", "", "No confirmed call on this one", {}}));
}

TEST(PredictionText, WithoutAPredictionGivesTheNotice) {
    EXPECT_EQ(predictionText(std::nullopt, "Too dark.", 0.5).notice, "Too dark.");
    EXPECT_EQ(predictionText(std::nullopt, "", 0.5).notice, "No confirmed call on this one");
}

TEST(ConfidenceBadge, GradesAgainstTheGate) {
    struct {
        double confidence, gate;
        TonedText badge;
    } const rows[] = {{0.8, 0.5, {"High confidence", Tone::Accent}},
                      {0.7, 0.5, {"High confidence", Tone::Accent}},
                      {0.6, 0.5, {"Good confidence", Tone::SoftAccent}},
                      {0.5, 0.5, {"Good confidence", Tone::SoftAccent}},
                      {0.49, 0.5, {"Low confidence", Tone::Warn}},
                      {0.95, 0.9, {"High confidence", Tone::Accent}},
                      {0.94, 0.9, {"Good confidence", Tone::SoftAccent}}};
    for (const auto& row : rows) {
        EXPECT_EQ(confidenceBadge(eagle(row.confidence), row.gate), row.badge) << row.confidence;
    }
}

}  // namespace
}  // namespace ornivo::app
