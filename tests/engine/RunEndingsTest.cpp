#include <gtest/gtest.h>

#include <chrono>

#include "engine/PausedRun.h"
#include "support/RunScene.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;
using Names = std::set<std::string>;
using Texts = std::vector<std::string>;

/// A burst of one bird: the frame in the middle missed the gate.
class Burst : public ::testing::Test {
protected:
    void addBurst(IdentifiedSpecies middle) {
        scene_.picture("IMG_1.jpg", robin, 0.9);
        scene_.picture("IMG_2.jpg", std::move(middle));
        scene_.picture("IMG_3.jpg", robin, 0.9);
    }

    RunReport runWith(BurstInheritance inheritance) {
        scene_.input.options.burstInheritance = inheritance;
        return scene_.run();
    }

    const IdentifiedSpecies agreeing_ = guesses({{robin.label, 0.4}, {grebe.label, 0.1}});
    const IdentifiedSpecies differing_ = guesses({{grebe.label, 0.4}, {robin.label, 0.3}});
    RunScene scene_;
};

TEST_F(Burst, APromotedShotCountsAsSortedAndStaysInLowConfidence) {
    addBurst(agreeing_);
    const auto report = runWith(BurstInheritance::confirmedOnly);
    EXPECT_EQ(report.sort().sorted, 3);
    EXPECT_EQ(report.sort().burstPromoted, 1);
    EXPECT_EQ(report.sort().unidentified, 0);
    EXPECT_EQ(report.sort().lowConfidence, 1);
    EXPECT_EQ(report.sort().perSpecies, (std::map<std::string, int>{{"European Robin", 3}}));
    EXPECT_TRUE(scene_.filed().contains("European Robin/IMG_2.jpg"));
}

TEST_F(Burst, APromotedShotLosesItsRowOnThePageAndKeepsItInTheList) {
    addBurst(agreeing_);
    scene_.picture("other.jpg", tit, 0.2);
    runWith(BurstInheritance::confirmedOnly);
    ASSERT_EQ(scene_.engine().reviewRows().size(), 1U);
    EXPECT_EQ(scene_.engine().reviewRows()[0].fileName, "other.jpg");
    EXPECT_EQ(scene_.contents("_Uncertain/review.csv"),
              "filename,guess1,conf1,guess2,conf2,guess3,conf3\n"
              "IMG_2.jpg,European Robin,0.4000,Clark's Grebe,0.1000,,\n"
              "other.jpg,Long-tailed Tit,0.2000,,,,\n");
}

TEST_F(Burst, WhenAllWerePromotedNoRowsAreLeftThoughTheListHasThem) {
    addBurst(agreeing_);
    runWith(BurstInheritance::confirmedOnly);
    EXPECT_TRUE(scene_.engine().reviewRows().empty());
    EXPECT_EQ(scene_.filed(), (Names{"European Robin/IMG_1.jpg", "European Robin/IMG_2.jpg",
                                     "European Robin/IMG_3.jpg", "_Uncertain/review.csv"}));
}

TEST_F(Burst, AFrameWithAnotherFirstGuessIsPromotedOnlyWhenCorrectionsAreWanted) {
    addBurst(differing_);
    EXPECT_EQ(runWith(BurstInheritance::confirmedOnly).sort().burstPromoted, 0);
    EXPECT_EQ(runWith(BurstInheritance::confirmedAndCorrected).sort().burstPromoted, 1);
}

TEST_F(Burst, WithoutInheritanceNothingIsPromoted) {
    addBurst(agreeing_);
    EXPECT_EQ(runWith(BurstInheritance::off).sort().burstPromoted, 0);
    EXPECT_TRUE(scene_.filed().contains("_Uncertain/IMG_2.jpg"));
}

TEST_F(Burst, APromotedShotTakesItsPartnersAndCompanionsAlong) {
    scene_.picture("IMG_1.jpg", robin, 0.9);
    scene_.picture("IMG_2.jpg", robin, 0.4);
    scene_.raw("IMG_2.dng", robin, 0.3);
    scene_.sidecar("IMG_2.dng.xmp");
    scene_.picture("IMG_3.jpg", robin, 0.9);
    EXPECT_EQ(runWith(BurstInheritance::confirmedOnly).sort().burstPromoted, 1);
    EXPECT_EQ(scene_.filed(), (Names{"European Robin/IMG_1.jpg", "European Robin/IMG_2.jpg",
                                     "European Robin/IMG_2.dng", "European Robin/IMG_2.dng.xmp",
                                     "European Robin/IMG_3.jpg", "_Uncertain/review.csv"}));
}

TEST_F(Burst, OfTwoFilesWithOneNumberOnlyTheLaterCanBePromoted) {
    scene_.picture("IMG_1.jpg", robin, 0.9);
    scene_.picture("IMG_2.jpg", robin, 0.4);
    scene_.picture("again_2.jpg", robin, 0.4);
    scene_.picture("IMG_3.jpg", robin, 0.9);
    const auto report = runWith(BurstInheritance::confirmedOnly);
    EXPECT_EQ(report.sort().burstPromoted, 1);
    EXPECT_TRUE(scene_.filed().contains("European Robin/again_2.jpg"));
    EXPECT_TRUE(scene_.filed().contains("_Uncertain/IMG_2.jpg"));
}

TEST_F(Burst, AShotThatCanNotBeMovedIsAWarningAndStaysUncertain) {
    addBurst(agreeing_);
    scene_.files().fail(Operation::move, nth(1), notPermitted());
    const auto report = runWith(BurstInheritance::confirmedOnly);
    EXPECT_EQ(report.sort().warnings,
              Texts{"Could not file IMG_2.jpg from its burst: It couldn't be done: Permission "
                    "denied"});
    EXPECT_EQ(report.sort().burstPromoted, 0);
    EXPECT_EQ(report.sort().unidentified, 1);
    EXPECT_EQ(scene_.engine().reviewRows().size(), 1U);
}

TEST_F(Burst, AShotThatTheUserRemovedMeanwhileIsPassedOver) {
    addBurst(agreeing_);
    scene_.files().onAttempt([this](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::copy && attempt.path.filename() == "IMG_3.jpg") {
            fs::remove(scene_.input.destination / "_Uncertain/IMG_2.jpg");
        }
    });
    const auto report = runWith(BurstInheritance::confirmedOnly);
    EXPECT_EQ(report.sort().warnings, Texts());
    EXPECT_EQ(report.sort().burstPromoted, 0);
    EXPECT_EQ(report.sort().unidentified, 1);
}

TEST_F(Burst, ARunThatStopsEarlyPromotesNothing) {
    addBurst(agreeing_);
    scene_.picture("IMG_4.jpg", robin, 0.9);
    scene_.files().onAttempt([this](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::copy && attempt.path.filename() == "IMG_3.jpg") {
            scene_.engine().cancel();
        }
    });
    EXPECT_EQ(runWith(BurstInheritance::confirmedOnly).sort().burstPromoted, 0);
    EXPECT_TRUE(scene_.filed().contains("_Uncertain/IMG_2.jpg"));
}

TEST_F(Burst, AResumedRunSeesTheFramesOfItsOwnPartAlone) {
    addBurst(agreeing_);
    scene_.files().fail(Operation::copy, nth(3), noSpaceLeft());
    EXPECT_EQ(runWith(BurstInheritance::confirmedOnly).sort().stopReason, StopReason::diskFull());
    scene_.input.startIndex = 2;
    const auto report = runWith(BurstInheritance::confirmedOnly);
    EXPECT_EQ(report.sort().burstPromoted, 0);
    EXPECT_EQ(report.sort().unidentified, 1);
}

TEST_F(Burst, AFrameOfTheEarlierPartConfirmsNothingInAResumedRun) {
    scene_.picture("IMG_1.jpg", robin, 0.9);
    scene_.picture("IMG_2.jpg", robin, 0.4);
    scene_.files().fail(Operation::copy, nth(2), noSpaceLeft());
    EXPECT_EQ(runWith(BurstInheritance::confirmedOnly).sort().stopReason, StopReason::diskFull());
    scene_.input.startIndex = 1;
    EXPECT_EQ(runWith(BurstInheritance::confirmedOnly).sort().burstPromoted, 0);
    EXPECT_TRUE(scene_.filed().contains("_Uncertain/IMG_2.jpg"));
}

// The user.

TEST(UserEnding, AStopLandsBetweenFilesAndLeavesNoRecord) {
    RunScene scene;
    for (int i = 0; i < 6; ++i) scene.picture("a" + std::to_string(i) + ".jpg", robin, 0.9);
    scene.files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::copy && attempt.number == 3) scene.engine().cancel();
    });
    const auto report = scene.run();
    EXPECT_EQ(report.lines().back(), "finished userCancelled, last 2");
    EXPECT_EQ(report.lines("progress").size(), 3U);
    EXPECT_EQ(report.sort().processed, 3);
    EXPECT_EQ(report.sort().sorted, 3);
    EXPECT_TRUE(report.sort().stopped);
    EXPECT_EQ(scene.filed().size(), 3U);
}

TEST(UserEnding, AStopLeavesAnEarlierRecordUntouched) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.9);
    writeFile(scene.input.destination / "_Paused/resume.json", "an earlier record");
    scene.files().onAttempt([&](const FailingFiles::Attempt&) { scene.engine().cancel(); });
    scene.picture("b.jpg", robin, 0.9);
    EXPECT_EQ(scene.run().sort().stopReason, StopReason::userCancelled());
    EXPECT_EQ(scene.contents("_Paused/resume.json"), "an earlier record");
}

// A full disk.

class FullDisk : public ::testing::Test {
protected:
    std::optional<PausedRun> record() {
        return PausedRun::read(scene_.input.destination, scene_.files());
    }

    RunScene scene_;
};

TEST_F(FullDisk, ThePageIsWrittenBeforeTheRecord) {
    scene_.picture("a.jpg", robin, 0.2);
    scene_.picture("b.jpg", robin, 0.2);
    scene_.files().fail(Operation::copy, nth(2), noSpaceLeft());
    std::vector<std::string> written;
    scene_.files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::replace) written.push_back(attempt.path.filename());
    });
    scene_.run();
    EXPECT_EQ(written, (Texts{"review.csv", "review.html", "resume.json"}));
}

TEST_F(FullDisk, EndsTheRunAtTheFileThatCouldNotBeFiled) {
    for (int i = 0; i < 12; ++i) scene_.picture("a" + std::to_string(i) + ".jpg", robin, 0.9);
    scene_.files().fail(Operation::copy, nth(10), noSpaceLeft());
    const auto report = scene_.run();
    const Texts lines = report.lines();
    EXPECT_EQ(Texts(lines.end() - 4, lines.end()),
              (Texts{"progress 9/12 a9.jpg {European Robin: 9} 0 uncertain",
                     "prediction Erithacus_rubecula 0.9", "disk full at 9",
                     "finished diskFull, last 8"}));
    EXPECT_EQ(report.sort().processed, 9);
    EXPECT_EQ(report.sort().errors, 0);
    EXPECT_TRUE(report.sort().stopped);
    ASSERT_TRUE(record());
    EXPECT_EQ(record()->stoppedAtIndex, 9);
}

TEST_F(FullDisk, AFolderThatCanNotBeMadeForLackOfSpaceIsOne) {
    scene_.picture("a.jpg", robin, 0.9);
    scene_.files().fail(Operation::createDirectories, nth(1), noSpaceLeft());
    EXPECT_EQ(scene_.run().lines().back(), "finished diskFull, last -1");
    EXPECT_EQ(record()->stoppedAtIndex, 0);
}

TEST_F(FullDisk, TheRecordSaysWhatTheRunWas) {
    scene_.picture("a.jpg", robin, 0.9);
    scene_.picture("b.jpg", robin, 0.2);
    scene_.picture("c.jpg", robin, 0.9);
    auto& options = scene_.input.options;
    options.mode = CopyMode::trashOriginal;
    options.rename = options.dateSubfolders = true;
    options.assumedLocation = PhotoLocation::make(51.5, -0.12);
    options.burstInheritance = BurstInheritance::confirmedAndCorrected;
    scene_.files().fail(Operation::copy, nth(3), noSpaceLeft());
    const auto before = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    scene_.run();

    ASSERT_TRUE(record());
    const PausedRun actual = *record();
    EXPECT_GE(actual.pausedAt, before);
    EXPECT_LE(actual.pausedAt, std::chrono::system_clock::now());
    PausedRun expected;
    expected.pausedAt = actual.pausedAt;
    for (const fs::path& path : scene_.input.paths) expected.sourcePaths.push_back(path.string());
    expected.destination = scene_.input.destination.string();
    expected.mode = "sort";
    expected.gate = 0.5375;
    expected.callLevel = actual.callLevel;
    expected.assumedLocation = "51.5,-0.12";
    expected.burstInheritance = "confirmedAndCorrected";
    expected.copyMode = "delete";
    expected.rename = expected.dateSubfolders = true;
    expected.totalPhotos = 3;
    expected.stoppedAtIndex = 2;
    expected.sortedSoFar = expected.uncertainSoFar = 1;
    EXPECT_EQ(actual, expected);
}

TEST_F(FullDisk, TheRecordOfAFindRunSaysSoAndLeavesOutWhatIsAbsent) {
    scene_.picture("a.jpg", robin, 0.99);
    scene_.input.mode = AppMode::find;
    scene_.input.targetSpecies = {{"European Robin", ""}};
    scene_.input.options.confidence = 99;
    scene_.files().fail(Operation::copy, nth(1), noSpaceLeft());
    scene_.run();
    ASSERT_TRUE(record());
    EXPECT_EQ(record()->mode, "find");
    EXPECT_EQ(record()->copyMode, "keep");
    EXPECT_EQ(record()->burstInheritance, "off");
    EXPECT_EQ(record()->callLevel, std::nullopt);
    EXPECT_EQ(record()->assumedLocation, std::nullopt);
}

TEST_F(FullDisk, TheRecordNamesTheCallLevelOfItsGate) {
    scene_.picture("a.jpg", robin, 0.99);
    scene_.input.options.confidence = 48;
    scene_.files().fail(Operation::copy, nth(1), noSpaceLeft());
    scene_.run();
    EXPECT_EQ(record()->gate, 0.6);
    EXPECT_TRUE(record()->callLevel);
}

TEST_F(FullDisk, ARecordThatCanNotBeWrittenChangesNothingOfTheEnding) {
    scene_.picture("a.jpg", robin, 0.9);
    scene_.files().fail(Operation::copy, nth(1), noSpaceLeft());
    scene_.files().fail(Operation::replace, from(1), noSpaceLeft());
    EXPECT_EQ(scene_.run().lines().back(), "finished diskFull, last -1");
    EXPECT_EQ(record(), std::nullopt);
}

TEST_F(FullDisk, AResumeInTheSameProcessGoesOnCounting) {
    scene_.picture("a.jpg", robin, 0.9);
    scene_.picture("b.jpg", robin, 0.2);
    scene_.junk("c.jpg");
    scene_.picture("d.jpg", robin, 0.9);
    scene_.picture("e.jpg", robin, 0.2);
    scene_.sidecar("b.xmp");
    scene_.files().fail(Operation::copy, named("b.xmp"), notPermitted());
    scene_.files().fail(Operation::copy, nth(4), noSpaceLeft());
    const auto stopped = scene_.run();
    EXPECT_EQ(stopped.lines().back(), "finished diskFull, last 2");

    scene_.input.startIndex = 3;
    scene_.picture("f.jpg", baldEagle, 0.9);
    const auto report = scene_.run();
    EXPECT_EQ(report.lines().front(), "progress 3/6 d.jpg {European Robin: 1} 1 uncertain");
    EXPECT_EQ(report.sort().sorted, 3);
    EXPECT_EQ(report.sort().unidentified, 2);
    EXPECT_EQ(report.sort().lowConfidence, 2);
    EXPECT_EQ(report.sort().errors, 1);
    EXPECT_EQ(report.sort().processed, 6);
    EXPECT_EQ(report.sort().total, 6);
    EXPECT_FALSE(report.sort().stopped);
    EXPECT_EQ(report.sort().warnings, stopped.sort().warnings);
    EXPECT_EQ(report.sort().warnings.size(), 1U);
    EXPECT_GT(report.sort().elapsedSeconds, stopped.sort().elapsedSeconds);
    EXPECT_EQ(scene_.engine().reviewRows().size(), 2U);
    EXPECT_EQ(record(), std::nullopt);
}

TEST_F(FullDisk, AResumeInANewProcessHasTheRowsOfItsPartAndTheListKeepsAll) {
    scene_.picture("a.jpg", robin, 0.2);
    scene_.picture("b.jpg", robin, 0.2);
    scene_.files().fail(Operation::copy, nth(2), noSpaceLeft());
    scene_.run();
    scene_.relaunch();
    scene_.input.startIndex = 1;
    const auto report = scene_.run();
    EXPECT_EQ(report.sort().unidentified, 1);
    const std::string page = scene_.contents("_Uncertain/review.html");
    EXPECT_EQ(page.find(R"({"f":"a.jpg")"), std::string::npos);
    EXPECT_NE(page.find(R"({"f":"b.jpg")"), std::string::npos);
    EXPECT_EQ(scene_.contents("_Uncertain/review.csv"),
              "filename,guess1,conf1,guess2,conf2,guess3,conf3\n"
              "a.jpg,European Robin,0.2000,,,,\nb.jpg,European Robin,0.2000,,,,\n");
}

TEST_F(FullDisk, ARecordThatCanNotBeRemovedChangesNothingOfTheEnding) {
    writeFile(scene_.input.destination / "_Paused/resume.json", "{}");
    scene_.files().fail(Operation::remove, nth(1), notPermitted());
    EXPECT_EQ(scene_.run().lines().back(), "finished completed, last -1");
    EXPECT_EQ(scene_.contents("_Paused/resume.json"), "{}");
}

TEST_F(FullDisk, AFinishedFindRunTakesTheRecordAwayToo) {
    writeFile(scene_.input.destination / "_Paused/resume.json", "{}");
    scene_.input.mode = AppMode::find;
    scene_.picture("a.jpg", robin, 0.9);
    scene_.run();
    EXPECT_FALSE(fs::exists(scene_.input.destination / "_Paused/resume.json"));
}

}  // namespace
}  // namespace ornivo
