#include "identification/CallLevel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace ornivo {
namespace {

using ::testing::ElementsAre;

struct LevelRow {
    CallLevel level;
    std::string raw;
    double gate;
    int slider;
    std::string title;
    std::string blurb;
    double misfileRate;
    bool cautionIsWarning;
    std::optional<std::string> caution;
};

const std::vector<LevelRow> rows{
    {CallLevel::confirmed, "confirmed", 0.6, 48, "Confirmed", "only what it's certain of", 0.11,
     false, std::nullopt},
    {CallLevel::probable, "probable", 0.45, 24, "Most likely", "its strong calls too", 0.172, false,
     "Measured: about 17% of birds outside the model land under a look-alike, against 11% at "
     "Confirmed — and 27% where the bird has a close relative in the model. Worth a glance over "
     "what gets named."},
    {CallLevel::possible, "possible", 0.3, 0, "Probable", "the widest net", 0.285, true,
     "Measured: nearly 30% of birds outside the model get the wrong name — over 40% for a bird "
     "with a close relative in the model. Good for a first pass you intend to check, not for an "
     "archive you intend to trust."},
};

TEST(CallLevel, EveryLevelIsAsItsRowSays) {
    for (const LevelRow& row : rows) {
        EXPECT_EQ(rawValue(row.level), row.raw);
        EXPECT_EQ(fromRawValue<CallLevel>(row.raw), row.level) << row.raw;
        EXPECT_EQ(gate(row.level), row.gate) << row.raw;
        EXPECT_EQ(slider(row.level), row.slider) << row.raw;
        EXPECT_EQ(title(row.level), row.title) << row.raw;
        EXPECT_EQ(blurb(row.level), row.blurb) << row.raw;
        EXPECT_EQ(measuredUnknownMisfileRate(row.level), row.misfileRate) << row.raw;
        EXPECT_EQ(cautionIsWarning(row.level), row.cautionIsWarning) << row.raw;
        EXPECT_EQ(caution(row.level), row.caution) << row.raw;
    }
}

TEST(CallLevel, AllCasesAreTheLadderTheStrictestFirst) {
    EXPECT_THAT(allCases<CallLevel>(),
                ElementsAre(CallLevel::confirmed, CallLevel::probable, CallLevel::possible));
}

TEST(CallLevel, ATitleIsNoRawValue) {
    EXPECT_EQ(fromRawValue<CallLevel>("Most likely"), std::nullopt);
    EXPECT_EQ(fromRawValue<CallLevel>("Probable"), std::nullopt);
}

TEST(CallLevel, APolicyHasTheLevelsGateAndKeepsThreeCandidates) {
    for (const LevelRow& row : rows) {
        EXPECT_EQ(policy(row.level), (ConfidencePolicy{row.gate, 3})) << row.raw;
    }
}

TEST(CallLevel, EverySliderPositionGivesAGateThatFindsItsLevel) {
    for (const LevelRow& row : rows) {
        EXPECT_EQ(callLevelMatching(ConfidencePolicy::threshold(row.slider)), row.level);
    }
}

TEST(CallLevel, AGateLessThanAThousandthAwayMatches) {
    EXPECT_EQ(callLevelMatching(0.6005), CallLevel::confirmed);
    EXPECT_EQ(callLevelMatching(0.5995), CallLevel::confirmed);
    EXPECT_EQ(callLevelMatching(0.4505), CallLevel::probable);
    EXPECT_EQ(callLevelMatching(0.3), CallLevel::possible);
}

TEST(CallLevel, AGateBetweenTheLevelsMatchesNone) {
    EXPECT_EQ(callLevelMatching(0.601), std::nullopt);
    EXPECT_EQ(callLevelMatching(0.5375), std::nullopt);
    EXPECT_EQ(callLevelMatching(0), std::nullopt);
}

std::string graded(double confidence, double gate) {
    const IdentifiedSpecies::Candidate top{"Pica_pica", confidence};
    return confidenceLabel(IdentifiedSpecies{top, {top}}, gate);
}

TEST(ConfidenceLabel, WithGate60TheBoundariesLieAt80And60) {
    EXPECT_EQ(graded(0.8, 0.6), "High");
    EXPECT_EQ(graded(0.79, 0.6), "Good");
    EXPECT_EQ(graded(0.6, 0.6), "Good");
    EXPECT_EQ(graded(0.59, 0.6), "Low");
}

TEST(ConfidenceLabel, WithGate80TheUpperBoundaryIsCappedAt95) {
    EXPECT_EQ(graded(0.95, 0.8), "High");
    EXPECT_EQ(graded(0.94, 0.8), "Good");
}

TEST(ConfidenceLabel, AGateAboveTheCapLeavesNothingGood) {
    EXPECT_EQ(graded(0.96, 0.97), "High");
    EXPECT_EQ(graded(0.94, 0.97), "Low");
}

}  // namespace
}  // namespace ornivo
