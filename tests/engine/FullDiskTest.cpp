#include <gtest/gtest.h>

#include <fstream>

#include "engine/PausedRun.h"
#include "support/RunScene.h"
#include "support/SmallDisk.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Names = std::set<std::string>;

/// A destination on a real file system that fills up.
class FullDiskOfAMebibyte : public ::testing::Test {
protected:
    void SetUp() override {
        if (!disk_) GTEST_SKIP() << "this user may not mount a small file system";
        scene_ = std::make_unique<RunScene>(std::make_shared<ScriptedIdentifier>(),
                                            disk_->path() / "sorted");
        writeFile(disk_->path() / "ballast", std::string(600 << 10, 'x'));
    }

    /// A picture of 96 KiB: decoders stop at the end of the image.
    fs::path heavyPicture(const std::string& name, double confidence = 0.9) {
        const fs::path path = scene_->picture(name, robin, confidence);
        std::ofstream(path, std::ios::app) << std::string(96 << 10, '\0');
        return path;
    }

    /// Takes the last byte.
    void fillUp() {
        const std::string rest(static_cast<std::size_t>(disk_->freeBytes()), 'x');
        std::ofstream(disk_->path() / "filler", std::ios::app) << rest;
    }

    void makeRoom() { fs::remove(disk_->path() / "ballast"); }

    const std::unique_ptr<SmallDisk> disk_ = SmallDisk::mount(1 << 20);
    std::unique_ptr<RunScene> scene_;
};

TEST_F(FullDiskOfAMebibyte, EndsTheRunWithNothingPartialAndTheRestUntouched) {
    for (int i = 0; i < 10; ++i) heavyPicture("a" + std::to_string(i) + ".jpg");
    scene_->input.options.mode = CopyMode::trashOriginal;
    const auto report = scene_->run();
    const auto& finished = report.sortFinished();
    ASSERT_EQ(finished.stopReason, StopReason::diskFull());
    const int stoppedAt = finished.lastProcessedIndex + 1;
    EXPECT_EQ(report.lines("disk full")[0], "disk full at " + std::to_string(stoppedAt));
    EXPECT_GT(stoppedAt, 0);
    EXPECT_LT(stoppedAt, 10);
    EXPECT_EQ(report.sort().sorted, stoppedAt);
    EXPECT_EQ(report.sort().errors, 0);

    Names expected{"_Paused/resume.json"};
    for (int i = 0; i < stoppedAt; ++i) {
        expected.insert("European Robin/a" + std::to_string(i) + ".jpg");
    }
    EXPECT_EQ(scene_->filed(), expected);
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(fs::exists(scene_->input.paths[static_cast<std::size_t>(i)]), i >= stoppedAt);
    }
}

TEST_F(FullDiskOfAMebibyte, AResumeInTheSameProcessGoesOnAtThatVeryFile) {
    for (int i = 0; i < 8; ++i) heavyPicture("a" + std::to_string(i) + ".jpg");
    const auto stopped = scene_->run();
    ASSERT_EQ(stopped.sort().stopReason, StopReason::diskFull());
    const auto record = PausedRun::read(scene_->input.destination, scene_->files());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->stoppedAtIndex, stopped.sortFinished().lastProcessedIndex + 1);
    EXPECT_EQ(record->sortedSoFar, stopped.sort().sorted);

    makeRoom();
    scene_->input.startIndex = static_cast<std::size_t>(record->stoppedAtIndex);
    const auto report = scene_->run();
    EXPECT_EQ(report.lines().front(), "progress " + std::to_string(record->stoppedAtIndex) +
                                          "/8 a" + std::to_string(record->stoppedAtIndex) +
                                          ".jpg {European Robin: " +
                                          std::to_string(stopped.sort().sorted) + "} 0 uncertain");
    EXPECT_EQ(report.sort().sorted, 8);
    EXPECT_EQ(report.sort().stopReason, StopReason::completed());
    EXPECT_EQ(scene_->filed().size(), 8U);
}

TEST_F(FullDiskOfAMebibyte, TheRecordAndThePageAreWrittenThoughNotAByteIsLeft) {
    heavyPicture("a.jpg", 0.2);
    heavyPicture("b.jpg", 0.2);
    scene_->files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        const bool isSecond = attempt.operation == FailingFiles::Operation::copy &&
                              attempt.path.filename() == "b.jpg";
        if (isSecond) fillUp();
    });
    const auto report = scene_->run();
    EXPECT_EQ(report.lines().back(), "finished diskFull, last 0");
    const auto record = PausedRun::read(scene_->input.destination, scene_->files());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->stoppedAtIndex, 1);
    EXPECT_EQ(record->uncertainSoFar, 1);
    EXPECT_NE(scene_->contents("_Uncertain/review.html").find("a.jpg"), std::string::npos);
}

TEST_F(FullDiskOfAMebibyte, ALongListHasItsRoomKeptToo) {
    heavyPicture("a.jpg");
    for (int i = 0; i < 200; ++i) {
        scene_->input.paths.push_back(scene_->source() / (std::string(200, 'x') + ".jpg"));
    }
    scene_->files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == FailingFiles::Operation::copy) fillUp();
    });
    EXPECT_EQ(scene_->run().lines().back(), "finished diskFull, last -1");
    const auto record = PausedRun::read(scene_->input.destination, scene_->files());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->sourcePaths.size(), 201U);
}

TEST_F(FullDiskOfAMebibyte, WithoutRoomForThePageThatOfTheRecordIsKeptAllTheSame) {
    makeRoom();
    // Names that take six times their length on the page make it long enough to need the record's
    // room as well.
    const std::string longName(240, '&');
    for (int i = 0; i < 120; ++i) {
        scene_->picture(longName + std::to_string(i) + ".jpg", robin, 0.2);
    }
    heavyPicture("last.jpg");
    // Cards for all of them would take more than the disk has.
    for (int i = 0; i < 2600; ++i) scene_->input.paths.push_back(scene_->source() / "x.jpg");
    scene_->files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        const bool isLast = attempt.operation == FailingFiles::Operation::copy &&
                            attempt.path.filename() == "last.jpg";
        if (isLast) fillUp();
    });
    const auto report = scene_->run();
    EXPECT_EQ(report.lines().back(), "finished diskFull, last 119");
    EXPECT_EQ(report.sort().unidentified, 120);
    const auto record = PausedRun::read(scene_->input.destination, scene_->files());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->stoppedAtIndex, 120);
}

TEST_F(FullDiskOfAMebibyte, ASearchKeepsNoRoomForCardsThatItNeverMakes) {
    heavyPicture("a.jpg");
    // Cards for all of them would take more than the disk has left.
    for (int i = 0; i < 1000; ++i) scene_->input.paths.push_back(scene_->source() / "x.jpg");
    scene_->input.mode = AppMode::find;
    scene_->input.targetSpecies = {{"European Robin", ""}};
    scene_->files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == FailingFiles::Operation::copy) fillUp();
    });
    EXPECT_EQ(scene_->run().lines().back(), "finished diskFull, last -1");
    const auto record = PausedRun::read(scene_->input.destination, scene_->files());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->mode, "find");
    EXPECT_EQ(record->sourcePaths.size(), 1001U);
}

TEST_F(FullDiskOfAMebibyte, ARunThatEndsGivesTheKeptRoomBack) {
    const auto before = disk_->freeBytes();
    scene_->junk("a.jpg");
    scene_->run();
    EXPECT_EQ(disk_->freeBytes(), before);
}

TEST_F(FullDiskOfAMebibyte, AfterTheResumeEverySourceIsInExactlyOnePlace) {
    for (int i = 0; i < 8; ++i) {
        heavyPicture("IMG_" + std::to_string(i) + ".jpg", i % 3 == 0 ? 0.2 : 0.9);
        scene_->sidecar("IMG_" + std::to_string(i) + ".xmp");
    }
    ASSERT_EQ(scene_->run().sort().stopReason, StopReason::diskFull());
    const auto record = PausedRun::read(scene_->input.destination, scene_->files());
    ASSERT_TRUE(record);
    makeRoom();
    scene_->relaunch();
    scene_->input.startIndex = static_cast<std::size_t>(record->stoppedAtIndex);
    const auto report = scene_->run();
    EXPECT_EQ(record->sortedSoFar + report.sort().sorted, 5);
    EXPECT_EQ(record->uncertainSoFar + report.sort().unidentified, 3);
    Names expected{"_Uncertain/review.csv", "_Uncertain/review.html"};
    for (int i = 0; i < 8; ++i) {
        const std::string stem =
            (i % 3 == 0 ? "_Uncertain/IMG_" : "European Robin/IMG_") + std::to_string(i);
        expected.insert({stem + ".jpg", stem + ".xmp"});
    }
    EXPECT_EQ(scene_->filed(), expected);
}

TEST_F(FullDiskOfAMebibyte, WithNoRoomForTheRecordTheRunEndsAllTheSame) {
    heavyPicture("a.jpg", 0.2);
    const std::int64_t rest = disk_->freeBytes();
    writeFile(disk_->path() / "more ballast", std::string(static_cast<std::size_t>(rest), 'x'));
    const auto report = scene_->run();
    EXPECT_EQ(report.lines().back(), "finished diskFull, last -1");
    EXPECT_EQ(scene_->filed(), Names());
    EXPECT_EQ(PausedRun::read(scene_->input.destination, scene_->files()), std::nullopt);
}

TEST_F(FullDiskOfAMebibyte, APartnerThatDoesNotFitIsAWarningAndTheNextShotMeetsTheFullDisk) {
    const auto jpeg = scene_->picture("a.jpg", robin, 0.9);
    const auto raw = scene_->raw("a.dng", robin, 0.8);
    std::ofstream(raw, std::ios::app) << std::string(500 << 10, '\0');
    heavyPicture("b.jpg");
    std::ofstream(scene_->input.paths.back(), std::ios::app) << std::string(500 << 10, '\0');
    const auto report = scene_->run();
    ASSERT_EQ(report.sort().warnings.size(), 1U);
    EXPECT_EQ(report.sort().warnings[0],
              "Filed a.jpg but not a.dng: \"a.dng\" couldn't be copied: No space left on device");
    EXPECT_EQ(report.lines().back(), "finished diskFull, last 1");
    EXPECT_EQ(scene_->filed(), (Names{"European Robin/a.jpg", "_Paused/resume.json"}));
}

}  // namespace
}  // namespace ornivo
