#include "app/presentation/ResultText.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

using Tone = TonedText::Tone;
using Lines = std::vector<TonedText>;

const std::filesystem::path sink = "/media/nas/Birds";

/// A run that ended at photo 10 of 50.
template <typename Result>
Result stoppedBy(const StopReason& reason) {
    Result result;
    result.processed = 10;
    result.total = 50;
    result.stopped = true;
    result.stopReason = reason;
    return result;
}

TEST(SortResultText, OfNothingSortedStillHasItsTwoCounts) {
    EXPECT_EQ(resultText(SortResult{}, sink),
              (ResultText{{{"✓ 0 photos sorted into bird folders", Tone::Accent},
                           {"? 0 moved to _Uncertain/", Tone::Subtext}},
                          {},
                          {{"0 species · 0.0s", Tone::Subtext}}}));
}

TEST(SortResultText, HasEveryRowInItsOrder) {
    SortResult result;
    result.sorted = 41;
    result.unidentified = 7;
    result.lowConfidence = 9;
    result.errors = 2;
    result.burstPromoted = 3;
    result.perSpecies = {{"Osprey", 40}, {"Avocet", 1}};
    result.elapsedSeconds = 125.9;
    result.warnings = {"w"};
    EXPECT_EQ(resultText(result, sink),
              (ResultText{
                  {{"✓ 41 photos sorted into bird folders", Tone::Accent},
                   {"↳ 3 of those came from their burst, not their own confidence", Tone::Subtext},
                   {"? 7 moved to _Uncertain/", Tone::Subtext},
                   {"9 photos had no confirmed call — accept probable calls?", Tone::Warn},
                   {"✗ 2 errors", Tone::Error}},
                  {{"w", Tone::Warn}},
                  {{"2 species · 2m 5s", Tone::Subtext}}}));
}

TEST(SortResultText, DoesNotInflect) {
    SortResult result;
    for (int* count : {&result.sorted, &result.unidentified, &result.lowConfidence, &result.errors,
                       &result.burstPromoted}) {
        *count = 1;
    }
    EXPECT_EQ(
        resultText(result, sink).outcome,
        (Lines{{"✓ 1 photos sorted into bird folders", Tone::Accent},
               {"↳ 1 of those came from their burst, not their own confidence", Tone::Subtext},
               {"? 1 moved to _Uncertain/", Tone::Subtext},
               {"1 photos had no confirmed call — accept probable calls?", Tone::Warn},
               {"✗ 1 errors", Tone::Error}}));
}

TEST(SortResultText, OfARunThatTheUserStoppedSaysWhere) {
    for (const StopReason& reason :
         {StopReason::userCancelled(), StopReason::fatalError("x"), StopReason::completed()}) {
        EXPECT_EQ(resultText(stoppedBy<SortResult>(reason), sink).ending,
                  (Lines{{"Stopped at 10/50 — results saved", Tone::Warn},
                         {"0 species · 0.0s", Tone::Subtext}}));
    }
}

const Lines whereItFilledUp{
    {"Stopped at photo 10 of 50 — Birds is full", Tone::Error},
    {"Free some space and resume — the rest are untouched in your source folder", Tone::Subtext}};

TEST(SortResultText, OfAFullDiskNamesTheDestination) {
    const auto result = stoppedBy<SortResult>(StopReason::diskFull());
    Lines ending = whereItFilledUp;
    ending.push_back({"0 species · 0.0s", Tone::Subtext});
    EXPECT_EQ(resultText(result, sink).ending, ending);
    EXPECT_EQ(resultText(result, std::nullopt).ending.front().text,
              "Stopped at photo 10 of 50 — The destination is full");
}

TEST(SortResultText, OfAFullDiskHasNoStopLinesUnlessItStopped) {
    SortResult result;
    result.stopReason = StopReason::diskFull();
    EXPECT_EQ(resultText(result, sink).ending, (Lines{{"0 species · 0.0s", Tone::Subtext}}));
}

TEST(FindResultText, HasEveryRowInItsOrder) {
    FindResult result;
    result.matched = 5;
    result.scanned = 90;
    result.lowConfidence = 4;
    result.errors = 1;
    result.warnings = {"w"};
    result.elapsedSeconds = 12.34;
    EXPECT_EQ(resultText(result, sink),
              (ResultText{{{"✓ 5 photos matched and copied", Tone::Accent},
                           {"~ 85 scanned, no match", Tone::Subtext},
                           {"4 photos had no confirmed call — accept probable calls?", Tone::Warn},
                           {"✗ 1 errors", Tone::Error}},
                          {{"w", Tone::Warn}},
                          {{"12.3s", Tone::Subtext}}}));
}

TEST(FindResultText, OfNothingHasItsTwoCountsAndItsTime) {
    EXPECT_EQ(resultText(FindResult{}, sink),
              (ResultText{{{"✓ 0 photos matched and copied", Tone::Accent},
                           {"~ 0 scanned, no match", Tone::Subtext}},
                          {},
                          {{"0.0s", Tone::Subtext}}}));
}

TEST(FindResultText, OfARunThatTheUserStoppedHasNoLineAboutThat) {
    const auto result = stoppedBy<FindResult>(StopReason::userCancelled());
    EXPECT_EQ(resultText(result, sink).ending, (Lines{{"0.0s", Tone::Subtext}}));
}

TEST(FindResultText, OfAFullDiskNamesTheDestination) {
    const auto result = stoppedBy<FindResult>(StopReason::diskFull());
    Lines ending = whereItFilledUp;
    ending.push_back({"0.0s", Tone::Subtext});
    EXPECT_EQ(resultText(result, sink).ending, ending);
}

TEST(WarningRows, AreTheFirstThreeAndACountOfTheRest) {
    EXPECT_TRUE(warningRows({}).empty());
    const Lines three{{"a", Tone::Warn}, {"b", Tone::Warn}, {"c", Tone::Warn}};
    EXPECT_EQ(warningRows({"a", "b", "c"}), three);
    Lines four = three;
    four.push_back({"+ 1 more", Tone::Subtext});
    EXPECT_EQ(warningRows({"a", "b", "c", "d"}), four);
    four.back().text = "+ 99997 more";
    std::vector<std::string> many{"a", "b", "c"};
    many.resize(100000);
    EXPECT_EQ(warningRows(many), four);
}

}  // namespace
}  // namespace ornivo::app
