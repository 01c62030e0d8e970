#include "app/presentation/OptionsText.h"

#include <gtest/gtest.h>

#include "vocabulary/ConfidencePolicy.h"

namespace ornivo::app {
namespace {

constexpr const char* mostLikelyCaution =
    "Measured: about 17% of birds outside the model land under a look-alike, against 11% at "
    "Confirmed — and 27% where the bird has a close relative in the model. Worth a glance over "
    "what gets named.";
constexpr const char* probableCaution =
    "Measured: nearly 30% of birds outside the model get the wrong name — over 40% for a bird "
    "with a close relative in the model. Good for a first pass you intend to check, not for an "
    "archive you intend to trust.";

struct Case {
    int position;
    int level;
    const char* caution;
    bool cautionIsWarning;
    const char* tuning;
    const char* match;
    const char* spokenMatch;
};

class CallLevelTexts : public ::testing::TestWithParam<Case> {};

}  // namespace

TEST_P(CallLevelTexts, SayWhatAPositionOfTheSliderMeans) {
    const Case& row = GetParam();
    const CallLevelText text = callLevelText(ConfidencePolicy::threshold(row.position));
    EXPECT_EQ(text.level, row.level);
    EXPECT_EQ(text.caution, QString::fromUtf8(row.caution));
    EXPECT_EQ(text.cautionIsWarning, row.cautionIsWarning);
    EXPECT_EQ(text.tuning, row.tuning);
    EXPECT_EQ(text.match, row.match);
    EXPECT_EQ(text.spokenMatch, row.spokenMatch);
}

INSTANTIATE_TEST_SUITE_P(
    Positions, CallLevelTexts,
    ::testing::Values(
        Case{48, 0, "", false, "Fine tune", "needs a 60/100 match",
             "needs a match of 60 out of 100"},
        Case{24, 1, mostLikelyCaution, false, "Fine tune", "needs a 45/100 match",
             "needs a match of 45 out of 100"},
        Case{0, 2, probableCaution, true, "Fine tune", "needs a 30/100 match",
             "needs a match of 30 out of 100"},
        // Where the program starts: between the two upper levels.
        Case{38, -1, "", false, "Custom", "needs a 54/100 match", "needs a match of 54 out of 100"},
        Case{47, -1, "", false, "Custom", "needs a 59/100 match", "needs a match of 59 out of 100"},
        Case{49, -1, "", false, "Custom", "needs a 61/100 match", "needs a match of 61 out of 100"},
        Case{80, -1, "", false, "Custom", "needs a 80/100 match", "needs a match of 80 out of 100"},
        Case{100, -1, "", false, "Custom", "needs a 95/100 match",
             "needs a match of 95 out of 100"}));

TEST(OptionsText, EveryPositionButTheNamedThreeIsCustom) {
    for (int position = 0; position <= 100; ++position) {
        const bool isNamed = position == 0 || position == 24 || position == 48;
        const CallLevelText text = callLevelText(ConfidencePolicy::threshold(position));
        EXPECT_EQ(text.level >= 0, isNamed) << position;
        EXPECT_EQ(text.tuning, isNamed ? "Fine tune" : "Custom") << position;
    }
}

TEST(OptionsText, TheLevelsStandWithTheStrictestFirst) {
    EXPECT_EQ(callLevelChoices(), (std::vector<Choice>{{"Confirmed", "— only what it's certain of"},
                                                       {"Most likely", "— its strong calls too"},
                                                       {"Probable", "— the widest net"}}));
}

TEST(OptionsText, TheExplanationNamesTheFolderForReview) {
    EXPECT_EQ(callLevelExplanation(),
              "Stricter = fewer birds named, more sent to _Uncertain/ for you to review. Looser = "
              "more named, more of them wrong.");
}

TEST(OptionsText, OnlyTrashedOriginalsNeedANote) {
    EXPECT_EQ(originalsNote(true),
              QString::fromUtf8("Originals go to your Trash once each copy is written — "
                                "recoverable from there."));
    EXPECT_EQ(originalsNote(false), "");
}

}  // namespace ornivo::app
