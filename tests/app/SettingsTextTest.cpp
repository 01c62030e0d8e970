#include "app/presentation/SettingsText.h"

#include <gtest/gtest.h>

namespace ornivo::app {

TEST(SettingsText, SaysWhichModelIdentifies) {
    EXPECT_EQ(modelNote(true), "Using BirdClassifier model from the app bundle.");
    EXPECT_EQ(
        modelNote(false),
        QString::fromUtf8("Bundled model missing — running on Mock predictions (DEBUG only)."));
}

TEST(SettingsText, TheWaysOfTreatingBurstsStandInTheirOrder) {
    EXPECT_EQ(burstChoices(),
              (std::vector<Choice>{
                  {"Off", QString::fromUtf8("— file every photo on its own")},
                  {"Confirm near-misses", QString::fromUtf8("— measured 92% right")},
                  {"Also correct identifications", QString::fromUtf8("— measured 53% right")}}));
}

TEST(SettingsText, EachWayOfTreatingBurstsIsExplained) {
    EXPECT_EQ(burstExplanation(BurstInheritance::off),
              "Photographers shoot bursts, and the frames either side of an uncertain one often "
              "show the same bird. Switching this on lets that evidence be used.");
    EXPECT_EQ(
        burstExplanation(BurstInheritance::confirmedOnly),
        QString::fromUtf8(
            "When a frame already picked the same species as its neighbours but fell just under "
            "the confidence gate, it is filed with them. Nothing is re-identified — the burst "
            "only supplies the missing confidence. Measured against known-correct labels: 97% "
            "right on a single-bird burst, and still 92% right where a burst contains two birds "
            "of the same genus."));
    EXPECT_EQ(
        burstExplanation(BurstInheritance::confirmedAndCorrected),
        QString::fromUtf8(
            "Also changes a frame's identification to match its neighbours. Now measured against "
            "known-correct labels: when a burst contains two birds of the SAME GENUS — which is "
            "what happens when a second bird lands — this gets 47% of those changes wrong. "
            "Roughly half of what it alters becomes the wrong species, on photographs that look "
            "correctly filed. Useful when you know a session was one bird; not for a mixed "
            "shoot."));
}

TEST(SettingsText, OnlyCorrectingIsExperimental) {
    EXPECT_FALSE(burstInheritanceIsExperimental(BurstInheritance::off));
    EXPECT_FALSE(burstInheritanceIsExperimental(BurstInheritance::confirmedOnly));
    EXPECT_TRUE(burstInheritanceIsExperimental(BurstInheritance::confirmedAndCorrected));
}

TEST(SettingsText, NamingARegionIsExplainedBeforeAndAfter) {
    EXPECT_EQ(regionExplanation(false, 1250),
              QString::fromUtf8(
                  "The classifier knows 1250 species worldwide. Naming your region makes it "
                  "prefer the birds actually recorded there — species from elsewhere are ranked "
                  "lower, never ruled out."));
    EXPECT_EQ(regionExplanation(true, 1250),
              QString::fromUtf8(
                  "Species with no record in this region are ranked lower, never ruled out — a "
                  "genuine vagrant can still win if the photo is convincing."));
}

}  // namespace ornivo::app
