#include "app/presentation/TargetSpeciesText.h"

#include <gtest/gtest.h>

namespace ornivo::app {

TEST(TargetSpeciesText, TheFieldSaysHowManySpeciesThereAre) {
    EXPECT_EQ(speciesFieldPlaceholder(1250), "Name one of 1250 species");
}

TEST(TargetSpeciesText, TheAnswerOfTheCoverageCheckDependsOnTheMatches) {
    EXPECT_EQ(coverageLine(0, 1250), "Not among the 1250 species this version knows.");
    EXPECT_EQ(coverageLine(1, 1250), "1 match");
    EXPECT_EQ(coverageLine(2, 1250), "2 matches");
    EXPECT_EQ(coverageLine(40, 1250), "40 matches");
}

TEST(TargetSpeciesText, TheCoverageCheckSaysHowManyBirdsAreKnown) {
    EXPECT_EQ(coverageExtent(1250), "1250 species, identified on your Mac.");
}

TEST(TargetSpeciesText, TwoCharactersAreEnoughToLookABirdUp) {
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
