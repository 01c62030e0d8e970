#include "cli/PausedRunText.h"

#include <gmock/gmock.h>

#include "cli/TerminalText.h"
#include "identification/CallLevel.h"

namespace ornivo::cli {

using ::testing::ElementsAre;

namespace {

constexpr int wide = 200;

PausedRun recordOfThree() {
    PausedRun run;
    run.sourcePaths = {"/card/a.jpg", "/card/x/b.jpg", "/card/c.jpg"};
    run.destination = "/home/me/Birds";
    run.mode = "sort";
    run.gate = 0.5375;
    run.totalPhotos = 3;
    run.stoppedAtIndex = 1;
    run.sortedSoFar = 12;
    run.uncertainSoFar = 3;
    return run;
}

std::string callsOf(const PausedRun& run) {
    return pausedRunText(run, wide)[4];
}

}  // namespace

TEST(PausedRunText, ARunThatFilledTheDiskIsToldInFull) {
    EXPECT_THAT(
        pausedRunText(recordOfThree(), wide),
        ElementsAre("⏸ 2 photos left to sort into Birds",
                    "Birds ran out of space partway through. Free some room and resume. "
                    "Nothing was moved — these photos are still where you left them.",
                    "From         a.jpg, b.jpg, c.jpg", "To           Birds",
                    "Calls        Custom · files at 54%", "Done so far  12 sorted · 3 to review"));
}

TEST(PausedRunText, ARunThatTheUserStoppedIsSaidToBeThat) {
    PausedRun run = recordOfThree();
    run.reason = PausedRun::Reason::userCancelled;
    EXPECT_EQ(pausedRunText(run, wide)[1],
              "You stopped this run partway through. Nothing was moved — these photos are still "
              "where you left them.");
}

TEST(PausedRunText, CallsAreALevelByItsNameOrByItsGateOrElseAPercentage) {
    PausedRun run = recordOfThree();
    run.callLevel = "confirmed";
    EXPECT_EQ(callsOf(run), "Calls        " + title(CallLevel::confirmed));
    run.callLevel = "bold";
    EXPECT_EQ(callsOf(run), "Calls        Custom · files at 54%");
    run.gate = 0.45;
    EXPECT_EQ(callsOf(run), "Calls        " + title(CallLevel::probable));
    run.callLevel.reset();
    EXPECT_EQ(callsOf(run), "Calls        " + title(CallLevel::probable));
}

TEST(PausedRunText, RowsFitTheTerminalAndNamesCanNotActOnIt) {
    PausedRun run = recordOfThree();
    run.sourcePaths.resize(500, "/card/IMG_\x1b[2J.jpg");
    run.destination = "/home/me/Bir\nds";
    const auto lines = pausedRunText(run, 40);
    for (const std::size_t row : {0U, 2U, 3U, 4U, 5U}) EXPECT_LE(columnsOf(lines[row]), 40);
    for (const auto& line : lines) EXPECT_EQ(line, printable(line));
    EXPECT_THAT(lines[2], ::testing::StartsWith("From         a.jpg, b.jpg,…"));
}

}  // namespace ornivo::cli
