#include "cli/Summary.h"

#include <gtest/gtest.h>

namespace ornivo::cli {

namespace {

SortResult resultOf(int sorted, int unidentified) {
    SortResult result;
    result.sorted = sorted;
    result.unidentified = unidentified;
    result.elapsedSeconds = 42;
    return result;
}

std::vector<SummaryLine> summaryOf(const SortResult& result) {
    return summary(result, "Birds");
}

const SummaryLine sorted0{"✓ 0 photos sorted into bird folders", Tone::accent};
const SummaryLine uncertain0{"? 0 moved to _Uncertain/", Tone::subdued};
const SummaryLine noSpecies{"0 species · 42.0s", Tone::subdued};

}  // namespace

TEST(Summary, TimesBelowAMinuteHaveOneDecimalAndLongerOnesMinutesAndSeconds) {
    struct Row {
        double seconds;
        const char* label;
    };
    for (const Row row :
         {Row{0, "0.0s"}, Row{0.04, "0.0s"}, Row{0.06, "0.1s"}, Row{42, "42.0s"},
          Row{59.9, "59.9s"}, Row{59.97, "60.0s"}, Row{60, "1m 0s"}, Row{125.9, "2m 5s"},
          Row{3599.9, "59m 59s"}, Row{3600, "60m 0s"}, Row{36061, "601m 1s"}}) {
        EXPECT_EQ(timeLabel(row.seconds), row.label) << row.seconds;
    }
}

TEST(Summary, ARunThatSortedNothingStillSaysSo) {
    const std::vector<SummaryLine> expected{sorted0, uncertain0, noSpecies};
    EXPECT_EQ(summaryOf(resultOf(0, 0)), expected);
}

TEST(Summary, OnePhotoReadsAsPhotos) {
    SortResult result = resultOf(1, 1);
    result.perSpecies = {{"Hoopoe", 1}};
    const std::vector<SummaryLine> expected{
        {"✓ 1 photos sorted into bird folders", Tone::accent},
        {"? 1 moved to _Uncertain/", Tone::subdued},
        {"1 species · 42.0s", Tone::subdued},
    };
    EXPECT_EQ(summaryOf(result), expected);
}

TEST(Summary, EveryRowOfARunWithEverythingStandsInItsPlace) {
    SortResult result = resultOf(12, 3);
    result.burstPromoted = 2;
    result.lowConfidence = 5;
    result.errors = 4;
    result.processed = 21;
    result.total = 50;
    result.stopped = true;
    result.stopReason = StopReason::userCancelled();
    result.perSpecies = {{"Hoopoe", 7}, {"Wryneck", 5}};
    result.warnings = {"first", "second"};
    result.elapsedSeconds = 125.9;
    const std::vector<SummaryLine> expected{
        {"✓ 12 photos sorted into bird folders", Tone::accent},
        {"↳ 2 of those came from their burst, not their own confidence", Tone::subdued},
        {"? 3 moved to _Uncertain/", Tone::subdued},
        {"5 photos had no confirmed call — accept probable calls?", Tone::warning},
        {"✗ 4 errors", Tone::error},
        {"first", Tone::warning},
        {"second", Tone::warning},
        {"Stopped at 21/50 — results saved", Tone::warning},
        {"2 species · 2m 5s", Tone::subdued},
    };
    EXPECT_EQ(summaryOf(result), expected);
}

TEST(Summary, ARunStoppedByTheUserSaysHowFarItGot) {
    SortResult result = resultOf(0, 0);
    result.processed = 10;
    result.total = 50;
    result.stopped = true;
    for (const auto& reason : {StopReason::userCancelled(), StopReason::fatalError("gone")}) {
        result.stopReason = reason;
        const std::vector<SummaryLine> expected{
            sorted0, uncertain0, {"Stopped at 10/50 — results saved", Tone::warning}, noSpecies};
        EXPECT_EQ(summaryOf(result), expected);
    }
}

TEST(Summary, AFullDiskNamesTheDestinationAndSaysHowToGoOn) {
    SortResult result = resultOf(0, 0);
    result.processed = 9;
    result.total = 20;
    result.stopped = true;
    result.stopReason = StopReason::diskFull();
    const std::vector<SummaryLine> expected{
        sorted0,
        uncertain0,
        {"Stopped at photo 9 of 20 — Birds is full", Tone::error},
        {"Free some space and resume — the rest are untouched in your source folder",
         Tone::subdued},
        noSpecies,
    };
    EXPECT_EQ(summaryOf(result), expected);
}

TEST(Summary, ASearchThatFoundNothingSaysSo) {
    FindResult result;
    result.elapsedSeconds = 42;
    const std::vector<SummaryLine> expected{{"✓ 0 photos matched and copied", Tone::accent},
                                            {"~ 0 scanned, no match", Tone::subdued},
                                            {"42.0s", Tone::subdued}};
    EXPECT_EQ(summary(result, "Birds"), expected);
}

TEST(Summary, EveryRowOfASearchWithEverythingStandsInItsPlace) {
    FindResult result;
    result.matched = 3;
    result.scanned = 10;
    result.lowConfidence = 5;
    result.errors = 4;
    result.processed = 21;
    result.total = 50;
    result.stopped = true;
    result.stopReason = StopReason::diskFull();
    result.warnings = {"a", "b", "c", "d"};
    result.elapsedSeconds = 125.9;
    const std::vector<SummaryLine> expected{
        {"✓ 3 photos matched and copied", Tone::accent},
        {"~ 7 scanned, no match", Tone::subdued},
        {"5 photos had no confirmed call — accept probable calls?", Tone::warning},
        {"✗ 4 errors", Tone::error},
        {"a", Tone::warning},
        {"b", Tone::warning},
        {"c", Tone::warning},
        {"+ 1 more", Tone::subdued},
        {"Stopped at photo 21 of 50 — Birds is full", Tone::error},
        {"Free some space and resume — the rest are untouched in your source folder",
         Tone::subdued},
        {"2m 5s", Tone::subdued},
    };
    EXPECT_EQ(summary(result, "Birds"), expected);
}

TEST(Summary, ASearchStoppedByTheUserHasNoStopLine) {
    FindResult result;
    result.stopped = true;
    result.stopReason = StopReason::userCancelled();
    EXPECT_EQ(summary(result, "Birds").size(), 3U);
}

TEST(Summary, WhatAnEarlierPartDidIsOneLine) {
    const RunScope::EarlierPart earlier{.files = 20, .sorted = 12, .uncertain = 3};
    EXPECT_EQ(earlierSummary(AppMode::sort, earlier), "Before that: 12 sorted · 3 to review");
    EXPECT_EQ(earlierSummary(AppMode::find, earlier), "Before that: 20 photos processed");
}

TEST(Summary, ThreeWarningsAreAllShownAndAFourthIsCounted) {
    SortResult result = resultOf(0, 0);
    result.warnings = {"a", "b", "c"};
    const SummaryLine a{"a", Tone::warning};
    const SummaryLine b{"b", Tone::warning};
    const SummaryLine c{"c", Tone::warning};
    EXPECT_EQ(summaryOf(result),
              (std::vector<SummaryLine>{sorted0, uncertain0, a, b, c, noSpecies}));

    result.warnings.emplace_back("d");
    EXPECT_EQ(summaryOf(result),
              (std::vector<SummaryLine>{
                  sorted0, uncertain0, a, b, c, {"+ 1 more", Tone::subdued}, noSpecies}));

    result.warnings.resize(13);
    EXPECT_EQ(summaryOf(result)[5], (SummaryLine{"+ 10 more", Tone::subdued}));
}

}  // namespace ornivo::cli
