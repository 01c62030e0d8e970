#include "identification/MockBirdIdentifier.h"

#include <gtest/gtest.h>

#include "support/Pictures.h"
#include "vocabulary/BirdIdentifierError.h"

namespace ornivo {
namespace {

using Candidates = std::vector<IdentifiedSpecies::Candidate>;
using Mode = MockBirdIdentifier::Mode;
using testing::filled;

TEST(MockBirdIdentifier, EachModeGivesItsThreeRowsTheBestFirst) {
    const std::vector<std::pair<Mode, Candidates>> rows{
        {Mode::highConfidence, {{"BALD EAGLE", 0.92}, {"GOLDEN EAGLE", 0.04}, {"OSPREY", 0.02}}},
        {Mode::lowConfidence,
         {{"HOUSE SPARROW", 0.32}, {"SONG SPARROW", 0.21}, {"WHITE CROWNED SPARROW", 0.18}}},
        {Mode::ambiguous, {{"MALLARD DUCK", 0.51}, {"TEAL DUCK", 0.42}, {"WOOD DUCK", 0.05}}},
    };
    for (const auto& [mode, candidates] : rows) {
        MockBirdIdentifier mock({}, mode);
        EXPECT_EQ(mock.identify(filled(300, 300)),
                  (IdentifiedSpecies{candidates.front(), candidates}));
    }
}

TEST(MockBirdIdentifier, APolicyThatKeepsOneStillGetsThreeRows) {
    const ConfidencePolicy policy{0.9, 1};
    MockBirdIdentifier mock(policy, Mode::ambiguous);
    EXPECT_EQ(mock.identify(filled(300, 300)).topK.size(), 3U);
    EXPECT_EQ(mock.policy(), policy);
}

TEST(MockBirdIdentifier, TheSizeFloorLiesAt224PixelsOnEachSide) {
    MockBirdIdentifier mock({}, Mode::highConfidence);
    EXPECT_EQ(mock.identify(filled(224, 224)).topLabel(), "BALD EAGLE");
    for (const auto& [width, height] : {std::pair{223, 500}, {500, 223}}) {
        try {
            mock.identify(filled(width, height));
            FAIL() << width << 'x' << height;
        } catch (const BirdIdentifierError& error) {
            EXPECT_EQ(error, BirdIdentifierError::imageTooSmall());
        }
    }
}

TEST(MockBirdIdentifier, AContextChangesNothing) {
    MockBirdIdentifier mock({}, Mode::lowConfidence);
    const IdentificationContext context(PhotoLocation::make(45, 10), 5);
    EXPECT_EQ(mock.identify(filled(300, 300), 6, context), mock.identify(filled(300, 300)));
    EXPECT_FALSE(mock.usesLocation());
    EXPECT_FALSE(mock.usesDate());
}

}  // namespace
}  // namespace ornivo
