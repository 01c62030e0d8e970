#include "engine/PausedRun.h"

#include <gtest/gtest.h>

#include "support/FailingFiles.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using testing::FailingFiles;
using testing::TempFolder;

PausedRun sample() {
    PausedRun record;
    record.pausedAt = std::chrono::sys_days(std::chrono::year(2024) / 5 / 17) +
                      std::chrono::hours(6) + std::chrono::minutes(7) + std::chrono::seconds(8);
    record.sourcePaths = {"/card/IMG_1.jpg", "/card/IMG_2.jpg"};
    record.destination = "/home/me/Birds";
    record.mode = "sort";
    record.gate = 0.5375;
    record.callLevel = "probable";
    record.assumedLocation = "51.5,-0.12";
    record.burstInheritance = "off";
    record.copyMode = "keep";
    record.totalPhotos = 10;
    record.stoppedAtIndex = 4;
    record.sortedSoFar = 3;
    record.uncertainSoFar = 1;
    return record;
}

class PausedRunOnDisk : public ::testing::Test {
protected:
    std::optional<PausedRun> read() { return PausedRun::read(folder_.path(), *files_); }

    TempFolder folder_;
    std::shared_ptr<FailingFiles> files_ = std::make_shared<FailingFiles>();
};

TEST_F(PausedRunOnDisk, LiesInItsOwnFolderInTheDestination) {
    EXPECT_EQ(PausedRun::manifestURL("/home/me/Birds"), "/home/me/Birds/_Paused/resume.json");
    EXPECT_EQ(sample().write(folder_.path(), *files_), folder_ / "_Paused/resume.json");
    EXPECT_TRUE(fs::exists(folder_ / "_Paused/resume.json"));
}

TEST_F(PausedRunOnDisk, ReadsBackAsItWasWritten) {
    ASSERT_TRUE(sample().write(folder_.path(), *files_));
    EXPECT_EQ(read(), sample());
}

TEST_F(PausedRunOnDisk, TheDestinationNeedNotBeThere) {
    EXPECT_TRUE(sample().write(folder_ / "new/place", *files_));
    EXPECT_EQ(PausedRun::read(folder_ / "new/place", *files_), sample());
}

TEST_F(PausedRunOnDisk, ANewRecordReplacesTheOldOne) {
    PausedRun later = sample();
    later.stoppedAtIndex = 9;
    ASSERT_TRUE(sample().write(folder_.path(), *files_));
    ASSERT_TRUE(later.write(folder_.path(), *files_));
    EXPECT_EQ(read(), later);
}

TEST_F(PausedRunOnDisk, ARecordThatCanNotBeWrittenIsAnsweredAsAbsentAndLeavesTheOldOne) {
    ASSERT_TRUE(sample().write(folder_.path(), *files_));
    PausedRun later = sample();
    later.stoppedAtIndex = 9;
    files_->fail(FailingFiles::Operation::replace, testing::nth(2), testing::noSpaceLeft());
    EXPECT_EQ(later.write(folder_.path(), *files_), std::nullopt);
    EXPECT_EQ(read(), sample());

    files_->fail(FailingFiles::Operation::createDirectories, testing::from(3),
                 testing::noSpaceLeft());
    EXPECT_EQ(later.write(folder_.path(), *files_), std::nullopt);
}

TEST_F(PausedRunOnDisk, NoRecordReadsAsAbsent) {
    EXPECT_EQ(read(), std::nullopt);
    EXPECT_EQ(PausedRun::read(folder_ / "nowhere", *files_), std::nullopt);
}

TEST_F(PausedRunOnDisk, ARecordOfAnotherVersionReadsAsAbsent) {
    for (const int version : {0, 2}) {
        PausedRun record = sample();
        record.version = version;
        ASSERT_TRUE(record.write(folder_.path(), *files_));
        EXPECT_EQ(read(), std::nullopt) << version;
    }
}

TEST_F(PausedRunOnDisk, ClearRemovesTheFileAndLeavesItsFolder) {
    ASSERT_TRUE(sample().write(folder_.path(), *files_));
    EXPECT_TRUE(PausedRun::clear(folder_.path(), *files_));
    EXPECT_FALSE(fs::exists(folder_ / "_Paused/resume.json"));
    EXPECT_TRUE(fs::is_directory(folder_ / "_Paused"));
}

TEST_F(PausedRunOnDisk, ClearWithNoFileAnswersFalseAndDoesNothingElse) {
    EXPECT_FALSE(PausedRun::clear(folder_.path(), *files_));
    EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST(PausedRun, TheRemainingCountIsNeverNegative) {
    PausedRun record = sample();
    EXPECT_EQ(record.remainingCount(), 6);
    record.stoppedAtIndex = 11;
    EXPECT_EQ(record.remainingCount(), 0);
}

TEST(PausedRun, TheSummaryCountsInTheSingularForOneFileAlone) {
    PausedRun record = sample();
    const auto withLeft = [&](int left) {
        record.stoppedAtIndex = record.totalPhotos - left;
        return record.summary();
    };
    EXPECT_EQ(withLeft(0), "0 photos left to sort into Birds");
    EXPECT_EQ(withLeft(1), "1 photo left to sort into Birds");
    EXPECT_EQ(withLeft(2), "2 photos left to sort into Birds");
}

TEST(PausedRun, TheSummaryOfARecordBeyondItsEndSaysThatNoneAreLeft) {
    PausedRun record = sample();
    record.stoppedAtIndex = 99;
    EXPECT_EQ(record.summary(), "0 photos left to sort into Birds");
}

TEST(PausedRun, TheSummarySaysSortInFindRunsToo) {
    PausedRun record = sample();
    record.mode = "find";
    record.destination = "/home/me/Eagles only/";
    EXPECT_EQ(record.summary(), "6 photos left to sort into Eagles only");
}

TEST(PausedRun, GatesMatchWhenTheyDifferByLessThanAThousandth) {
    const PausedRun record = sample();
    EXPECT_TRUE(record.settingsMatch(0.5375, "51.5,-0.12", "keep"));
    EXPECT_TRUE(record.settingsMatch(0.5379, "51.5,-0.12", "keep"));
    EXPECT_FALSE(record.settingsMatch(0.539, "51.5,-0.12", "keep"));
    EXPECT_FALSE(record.settingsMatch(0.536, "51.5,-0.12", "keep"));
}

TEST(PausedRun, AssumedLocationsMatchWhenBothAreAbsentOrTheSameText) {
    PausedRun record = sample();
    EXPECT_FALSE(record.settingsMatch(0.5375, std::nullopt, "keep"));
    EXPECT_FALSE(record.settingsMatch(0.5375, "51.50,-0.12", "keep"));
    record.assumedLocation.reset();
    EXPECT_TRUE(record.settingsMatch(0.5375, std::nullopt, "keep"));
    EXPECT_FALSE(record.settingsMatch(0.5375, "51.5,-0.12", "keep"));
}

TEST(PausedRun, CopyModesMustBeTheSame) {
    EXPECT_FALSE(sample().settingsMatch(0.5375, "51.5,-0.12", "delete"));
}

TEST(PausedRun, OptionsThatMayChangeOverAResumeAreNotCompared) {
    PausedRun record = sample();
    record.rename = true;
    record.dateSubfolders = true;
    record.burstInheritance = "confirmedOnly";
    EXPECT_TRUE(record.settingsMatch(0.5375, "51.5,-0.12", "keep"));
}

TEST(PausedRun, APositionIsHeldInItsShortestForm) {
    EXPECT_EQ(PausedRun::textOf(*PhotoLocation::make(51.5, -0.12)), "51.5,-0.12");
    EXPECT_EQ(PausedRun::textOf(*PhotoLocation::make(-90, 180)), "-90,180");
}

}  // namespace
}  // namespace ornivo
