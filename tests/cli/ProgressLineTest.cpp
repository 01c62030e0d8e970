#include "cli/ProgressLine.h"

#include <gtest/gtest.h>

#include "cli/TerminalText.h"

namespace ornivo::cli {

namespace {

RunProgress halfway() {
    return {60, 120, 7.5, "DSC_20260531_0042.NEF", false};
}

std::string textOf(const ProgressLine& line) {
    return line.bar + line.rest;
}

std::string lineIn(const RunProgress& progress, int columns) {
    return textOf(progressLine(progress, columns));
}

}  // namespace

TEST(ProgressLine, RoomForAllShowsBarCountRateTimeLeftAndName) {
    EXPECT_EQ(progressLine(halfway(), 79),
              (ProgressLine{"██████████░░░░░░░░░░",
                            " 60/120  8.0 photos/s  8s left  DSC_20260531_0042.NEF"}));
}

TEST(ProgressLine, WhereRoomIsShortTheNameShrinksAndThenTheWordsGo) {
    EXPECT_EQ(lineIn(halfway(), 64),
              "██████████░░░░░░░░░░ 60/120  8.0 photos/s  8s left  DSC_2…42.NEF");
    EXPECT_EQ(lineIn(halfway(), 60),
              "█████░░░░░ 60/120  8.0 photos/s  8s left  DSC_2026…_0042.NEF");
    EXPECT_EQ(lineIn(halfway(), 50), "█████░░░░░ 60/120  8.0/s  8s  DSC_20260…1_0042.NEF");
    EXPECT_EQ(lineIn(halfway(), 39), "██░░░ 60/120  8.0/s  8s  DSC_20…042.NEF");
    EXPECT_EQ(lineIn(halfway(), 30), "██░░░ 60/120  8s  DSC_2…42.NEF");
    EXPECT_EQ(lineIn(halfway(), 20), "██░░░ 60/120  8s");
    EXPECT_EQ(lineIn(halfway(), 10), "60/120");
    EXPECT_EQ(lineIn(halfway(), 2), "60");
}

TEST(ProgressLine, NoLineIsWiderThanTheTerminal) {
    RunProgress wide = halfway();
    wide.fileName = "鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥.jpg";
    for (int columns = 0; columns <= 120; ++columns) {
        EXPECT_LE(columnsOf(lineIn(halfway(), columns)), columns);
        EXPECT_LE(columnsOf(lineIn(wide, columns)), columns);
    }
}

TEST(ProgressLine, BeforeTheFirstFileThereIsNoRateAndNoTimeLeft) {
    EXPECT_EQ(lineIn({0, 120, 0, "a.jpg", false}, 79), "░░░░░░░░░░░░░░░░░░░░ 0/120  a.jpg");
}

TEST(ProgressLine, WhatAnEarlierPartDidDoesNotCountForTheSpeed) {
    EXPECT_EQ(lineIn({90, 120, 7.5, "", false, 60}, 79),
              "███████████████░░░░░ 90/120  4.0 photos/s  8s left");
    EXPECT_EQ(lineIn({60, 120, 0, "a.jpg", false, 60}, 79), "██████████░░░░░░░░░░ 60/120  a.jpg");
}

TEST(ProgressLine, ALineWithoutAFileNameEndsWithTheTimeLeft) {
    EXPECT_EQ(lineIn({60, 120, 7.5, "", false}, 79),
              "██████████░░░░░░░░░░ 60/120  8.0 photos/s  8s left");
}

TEST(ProgressLine, ARunThatIsStoppingSaysSoInPlaceOfTheTimeLeft) {
    RunProgress progress = halfway();
    progress.stopping = true;
    EXPECT_EQ(lineIn(progress, 79),
              "██████████░░░░░░░░░░ 60/120  8.0 photos/s  stopping…  DSC_20260531_0042.NEF");
}

TEST(ProgressLine, FastRatesAreWholeNumbers) {
    EXPECT_EQ(lineIn({100, 120, 2, "", false}, 79),
              "████████████████░░░░ 100/120  50 photos/s  1s left");
}

TEST(ProgressLine, TimeLeftIsInTheTwoLargestUnits) {
    struct Row {
        double secondsForOne;
        const char* left;
    };
    for (const Row row : {Row{0.2, "1s"}, Row{59, "59s"}, Row{60, "1m 0s"}, Row{3599, "59m 59s"},
                          Row{3600, "1h 0m"}, Row{100000, "27h 46m"}}) {
        const auto line = lineIn({1, 2, row.secondsForOne, "", false}, 79);
        EXPECT_NE(line.find(std::string("  ") + row.left + " left"), std::string::npos) << line;
    }
}

TEST(ProgressLine, AnEmptyRunHasAnEmptyBar) {
    EXPECT_EQ(lineIn({0, 0, 1, "", false}, 79), "░░░░░░░░░░░░░░░░░░░░ 0/0");
}

TEST(ProgressLine, ANameThatWouldActOnTheTerminalIsMadeSafe) {
    EXPECT_EQ(lineIn({0, 1, 0, "a\x1b[2J\n.jpg", false}, 79),
              "░░░░░░░░░░░░░░░░░░░░ 0/1  a\uFFFD[2J\uFFFD.jpg");
}

}  // namespace ornivo::cli
