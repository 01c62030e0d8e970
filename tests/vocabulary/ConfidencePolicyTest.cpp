#include "vocabulary/ConfidencePolicy.h"

#include <gtest/gtest.h>

namespace ornivo {

TEST(ConfidencePolicy, TheDefaultKeepsThreeCandidatesAndSitsAtSliderPosition38) {
    const ConfidencePolicy policy;
    EXPECT_EQ(policy.speciesThreshold, 0.5375);
    EXPECT_EQ(policy.topK, 3);
    EXPECT_EQ(ConfidencePolicy::threshold(ConfidencePolicy::defaultSlider),
              policy.speciesThreshold);
}

TEST(ConfidencePolicy, PositionsOfTheLevelsGiveTheirGatesExactly) {
    EXPECT_EQ(ConfidencePolicy::threshold(0), 0.3);
    EXPECT_EQ(ConfidencePolicy::threshold(38), 0.5375);
    EXPECT_EQ(ConfidencePolicy::threshold(48), 0.6);
    EXPECT_EQ(ConfidencePolicy::threshold(80), 0.8);
}

TEST(ConfidencePolicy, Positions24And100GiveTheirGatesWithinRounding) {
    EXPECT_NEAR(ConfidencePolicy::threshold(24), 0.45, 1e-12);
    EXPECT_NEAR(ConfidencePolicy::threshold(100), 0.95, 1e-12);
}

TEST(ConfidencePolicy, PositionsBeyondTheSliderAreClamped) {
    EXPECT_EQ(ConfidencePolicy::threshold(-5), 0.3);
    EXPECT_EQ(ConfidencePolicy::threshold(250), ConfidencePolicy::threshold(100));
}

TEST(ConfidencePolicy, AThresholdFindsItsSliderPosition) {
    struct Row {
        double threshold;
        int position;
    };
    for (const Row row : {Row{0.6, 48}, Row{0.45, 24}, Row{0.3, 0}, Row{0.5375, 38}, Row{0.8, 80},
                          Row{0.95, 100}, Row{1.0, 100}, Row{0.1, 0}}) {
        EXPECT_EQ(ConfidencePolicy::sliderPosition(row.threshold), row.position) << row.threshold;
    }
}

TEST(ConfidencePolicy, EveryPositionComesBackFromItsThreshold) {
    for (int position = 0; position <= 100; ++position) {
        EXPECT_EQ(ConfidencePolicy::sliderPosition(ConfidencePolicy::threshold(position)),
                  position);
    }
}

}  // namespace ornivo
