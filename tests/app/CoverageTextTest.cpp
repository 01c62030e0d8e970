#include "app/presentation/CoverageText.h"

#include <gtest/gtest.h>

namespace ornivo::app {

TEST(CoverageText, TheAnswerDependsOnTheMatches) {
    EXPECT_EQ(coverageLine(0, 1250), "Not among the 1250 species this version knows.");
    EXPECT_EQ(coverageLine(1, 1250), "1 match");
    EXPECT_EQ(coverageLine(2, 1250), "2 matches");
    EXPECT_EQ(coverageLine(40, 1250), "40 matches");
}

TEST(CoverageText, AMatchHasAnotherMarkThanNone) {
    EXPECT_EQ(coverageMark(0), (Mark{"xmark-circle", TonedText::Tone::Warn}));
    EXPECT_EQ(coverageMark(1), (Mark{"checkmark-circle", TonedText::Tone::Accent}));
    EXPECT_EQ(coverageMark(40), (Mark{"checkmark-circle", TonedText::Tone::Accent}));
}

TEST(CoverageText, SaysHowManyBirdsAreKnown) {
    EXPECT_EQ(coverageExtent(1250), "1250 species, identified on your Mac.");
}

TEST(CoverageText, TwoCharactersAreEnoughToLookABirdUp) {
    struct Case {
        const char* typed;
        bool isEnough;
    };
    for (const Case& row : {Case{"", false},
                            {"r", false},
                            {" r \n", false},
                            {"  ", false},
                            {"é", false},
                            {"e\u0301", false},
                            {"ro", true},
                            {" ro ", true},
                            {"鹤鹤", true}}) {
        EXPECT_EQ(isEnoughToLookUp(QString::fromUtf8(row.typed)), row.isEnough) << row.typed;
    }
}

}  // namespace ornivo::app
