#include "app/presentation/PausedRunText.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

PausedRun stoppedRun() {
    PausedRun run;
    run.sourcePaths = {"/media/card/DCIM/a.jpg", "/media/card/DCIM/b.jpg"};
    run.destination = "/media/nas/Birds";
    run.mode = "sort";
    run.gate = 0.5375;
    run.copyMode = "keep";
    run.burstInheritance = "off";
    run.totalPhotos = 50;
    run.stoppedAtIndex = 10;
    run.sortedSoFar = 8;
    run.uncertainSoFar = 2;
    return run;
}

TEST(PausedRunText, SaysWhatThereIsToGoOnWith) {
    EXPECT_EQ(pausedRunText(stoppedRun(), 0.5375, {}),
              (PausedRunText{
                  "40 photos left to sort into Birds",
                  "Birds ran out of space partway through. Free some room and resume. Nothing was "
                  "moved — these photos are still where you left them.",
                  "a.jpg, b.jpg", "Birds", "Custom · files at 54%", "8 sorted · 2 to review", ""}));
}

TEST(PausedRunText, WarnsOfOtherOptions) {
    EXPECT_EQ(pausedRunText(stoppedRun(), 0.6, {}).mismatch,
              "Your current options differ from the paused run. Resuming uses the paused settings, "
              "so the folder stays consistent.");
}

TEST(SettingsMatchNow, ComparesGatePlaceAndWhatBecomesOfTheOriginals) {
    const PausedRun run = stoppedRun();
    EXPECT_TRUE(settingsMatchNow(run, 0.5375, {}));
    EXPECT_TRUE(settingsMatchNow(run, 0.5379, {}));
    EXPECT_FALSE(settingsMatchNow(run, 0.54, {}));

    SortOptions options;
    options.mode = CopyMode::trashOriginal;
    EXPECT_FALSE(settingsMatchNow(run, 0.5375, options));

    PausedRun elsewhere = run;
    elsewhere.assumedLocation = "9.5,76.25";
    elsewhere.copyMode = "delete";
    EXPECT_FALSE(settingsMatchNow(elsewhere, 0.5375, options));
    options.assumedLocation = PhotoLocation::make(9.5, 76.25);
    EXPECT_TRUE(settingsMatchNow(elsewhere, 0.5375, options));
    options.mode = CopyMode::keep;
    EXPECT_FALSE(settingsMatchNow(run, 0.5375, options));
}

TEST(SourceNames, OfALongListEndWhereNobodyReadsOn) {
    PausedRun run = stoppedRun();
    run.sourcePaths.assign(100000, "/media/card/DCIM/IMG_0001.JPG");
    const QString names = sourceNames(run);
    EXPECT_TRUE(names.startsWith("IMG_0001.JPG, IMG_0001.JPG, "));
    EXPECT_TRUE(names.endsWith("IMG_0001.JPG…"));
    EXPECT_LT(names.size(), 2100);
    run.sourcePaths.clear();
    EXPECT_EQ(sourceNames(run), "");
}

}  // namespace
}  // namespace ornivo::app
