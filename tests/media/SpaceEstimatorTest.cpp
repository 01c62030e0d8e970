#include "media/SpaceEstimator.h"

#include <gtest/gtest.h>

#include "support/LoopDisk.h"
#include "support/SmallDisk.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Verdict = SpaceEstimate::Verdict;

constexpr std::int64_t bytes = 5'000'000'000;

VolumeInfo plainDisk(std::int64_t free) {
    return {"disk", "Disk", free, false};
}

VolumeInfo cloningDisk(std::int64_t free) {
    return {"disk", "Disk", free, true};
}

const VolumeInfo card{"card", "CARD", 1'000, false};

SpaceEstimate toPlainDisk(std::int64_t photographBytes, std::int64_t free) {
    return SpaceEstimator::estimate(photographBytes, card, plainDisk(free));
}

TEST(SpaceEstimator, OneCloningVolumeNeedsNothingWhateverIsFree) {
    for (const std::int64_t free : {std::int64_t{0}, std::int64_t{1}, 2 * bytes}) {
        const auto estimate = SpaceEstimator::estimate(bytes, cloningDisk(free), cloningDisk(free));
        EXPECT_EQ(estimate, (SpaceEstimate{bytes, 0, free, "Disk", Verdict::clones}));
        EXPECT_EQ(estimate.shortfallBytes(), 0);
    }
}

TEST(SpaceEstimator, OneVolumeThatCannotCloneIsAPlainCopy) {
    const auto estimate = SpaceEstimator::estimate(bytes, plainDisk(1), plainDisk(1));
    EXPECT_EQ(estimate, (SpaceEstimate{bytes, bytes, 1, "Disk", Verdict::doesNotFit}));
}

TEST(SpaceEstimator, ACloningVolumeIsAPlainCopyFromAnother) {
    VolumeInfo cloningCard = card;
    cloningCard.supportsCloning = true;
    EXPECT_EQ(SpaceEstimator::estimate(bytes, cloningCard, cloningDisk(bytes)).verdict,
              Verdict::tight);
}

TEST(SpaceEstimator, ExactlyEnoughIsTight) {
    EXPECT_EQ(toPlainDisk(bytes, bytes).verdict, Verdict::tight);
    EXPECT_EQ(toPlainDisk(bytes, bytes).shortfallBytes(), 0);
}

TEST(SpaceEstimator, TwoGigabytesToSpareFit) {
    EXPECT_EQ(toPlainDisk(bytes, bytes + 2'000'000'000).verdict, Verdict::fits);
}

TEST(SpaceEstimator, OneByteLessThanThatIsTight) {
    EXPECT_EQ(toPlainDisk(bytes, bytes + 1'999'999'999).verdict, Verdict::tight);
}

TEST(SpaceEstimator, OneByteShortDoesNotFit) {
    EXPECT_EQ(toPlainDisk(bytes, bytes - 1).verdict, Verdict::doesNotFit);
    EXPECT_EQ(toPlainDisk(bytes, bytes - 1).shortfallBytes(), 1);
}

TEST(SpaceEstimator, NothingToCopyIsTightWhereLittleIsFree) {
    EXPECT_EQ(toPlainDisk(0, 1'999'999'999).verdict, Verdict::tight);
    EXPECT_EQ(toPlainDisk(0, 0).verdict, Verdict::tight);
    EXPECT_EQ(toPlainDisk(0, 2'000'000'000).verdict, Verdict::fits);
}

TEST(SpaceEstimator, AVolumeWithoutANameStaysWithoutOne) {
    VolumeInfo nameless = plainDisk(bytes);
    nameless.name.reset();
    EXPECT_EQ(SpaceEstimator::estimate(bytes, card, nameless).destinationVolumeName, std::nullopt);
}

TEST(SpaceEstimator, ADestinationThatTellsNoSizesHasNothingFree) {
    const TempFolder folder;
    const auto estimate = SpaceEstimator::estimate(1, folder.path(), "/proc");
    EXPECT_EQ(estimate, (SpaceEstimate{1, 1, 0, "proc", Verdict::doesNotFit}));
}

class SpaceEstimatorOnASmallDisk : public ::testing::Test {
protected:
    void SetUp() override {
        if (!disk_) GTEST_SKIP() << "this user may not mount a small file system";
    }

    SpaceEstimate estimate(const fs::path& destination) const {
        return SpaceEstimator::estimate(100, folder_.path(), destination).value();
    }

    /// What is to be expected of the disk.
    SpaceEstimate onDisk() const {
        return {100, 100, disk_->freeBytes(), disk_->path().filename(), Verdict::tight};
    }

    const std::unique_ptr<SmallDisk> disk_ = SmallDisk::mount(1 << 20);
    const TempFolder folder_;
};

TEST_F(SpaceEstimatorOnASmallDisk, ADestinationThatIsThereIsJudgedByItsVolume) {
    EXPECT_EQ(estimate(disk_->path()), onDisk());
}

TEST_F(SpaceEstimatorOnASmallDisk,
       ADestinationWithTwoFoldersMissingIsJudgedByTheNearestThatIsThere) {
    EXPECT_EQ(estimate(*disk_ / "Birds/2026"), onDisk());
    EXPECT_EQ(estimate(*disk_ / "Birds/2026/"), onDisk());
    EXPECT_EQ(estimate(*disk_ / "none/.././Birds"), onDisk());
}

TEST_F(SpaceEstimatorOnASmallDisk, ALinkLeadsToTheVolumeItPointsTo) {
    fs::create_symlink(disk_->path(), folder_ / "link");
    EXPECT_EQ(estimate(folder_ / "link/Birds"), onDisk());
}

TEST_F(SpaceEstimatorOnASmallDisk, ALinkThatLeadsNowhereIsMissing) {
    fs::create_symlink("nowhere", *disk_ / "link");
    EXPECT_EQ(estimate(*disk_ / "link/Birds"), onDisk());
}

TEST_F(SpaceEstimatorOnASmallDisk, MemoryDoesNotClone) {
    EXPECT_FALSE(SpaceEstimator::willClone(disk_->path(), *disk_ / "Birds"));
    EXPECT_FALSE(SpaceEstimator::willClone(folder_.path(), disk_->path()));
}

TEST(SpaceEstimatorOnABtrfs, FilesThatAreKeptInPlaceAreAPlainCopy) {
    const auto disk = LoopDisk::mount(LoopDisk::Kind::btrfs);
    if (!disk) GTEST_SKIP() << "no btrfs can be made and mounted here";
    const fs::path photos = disk->makeFolderOfFilesKeptInPlace("card");
    writeFile(photos / "a.jpg", std::string(100, 'a'));
    EXPECT_FALSE(SpaceEstimator::willClone(photos, *disk / "Birds"));
    const auto estimate = SpaceEstimator::estimate(100, photos, *disk / "Birds").value();
    EXPECT_EQ(estimate.verdict, Verdict::tight);
    EXPECT_EQ(estimate.requiredBytes, 100);
    fs::create_directory(*disk / "other card");
    EXPECT_TRUE(SpaceEstimator::willClone(*disk / "other card", *disk / "Birds"));
}

}  // namespace
}  // namespace ornivo
