#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "media/FileScanner.h"
#include "media/SpaceEstimator.h"
#include "support/LoopDisk.h"
#include "support/RunScene.h"
#include "support/SmallDisk.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Verdict = SpaceEstimate::Verdict;

constexpr std::int64_t megabyte = 1'000'000;

/// A run that copies six photographs of four megabytes, with what is foreseen for it.
class Forecast {
public:
    Forecast(const fs::path& source, const fs::path& destination)
        : scene_(std::make_shared<ScriptedIdentifier>(), destination) {
        for (const char* const name : {"a.jpg", "b.jpg", "c.jpg", "d.jpg", "e.jpg", "f.jpg"}) {
            addHeavyPicture(name, source);
        }
        const auto scan = FileScanner::scan(source);
        EXPECT_EQ(scan.images, scene_.input.paths);
        photographBytes_ = scan.totalBytes;
        estimate_ = SpaceEstimator::estimate(scan.totalBytes, source, destination).value();
    }

    const SpaceEstimate& estimate() const { return estimate_; }
    std::int64_t photographBytes() const { return photographBytes_; }
    RunReport run() { return scene_.run(); }

private:
    /// Decoders stop at the end of the image, so that what follows may be anything.
    void addHeavyPicture(const std::string& name, const fs::path& source) {
        const fs::path made = scene_.picture(name, robin, 0.9);
        std::ofstream(made, std::ios::app) << std::string(4 * megabyte, 'x');
        fs::create_directories(source);
        fs::copy_file(made, source / name);
        scene_.input.paths.back() = source / name;
    }

    RunScene scene_;
    std::int64_t photographBytes_ = 0;
    SpaceEstimate estimate_;
};

/// Runs the forecast's run to a good end. Answers the bytes that it has taken from the disk.
template <typename Disk>
std::int64_t bytesUsed(Forecast& forecast, const Disk& disk) {
    const std::int64_t before = disk.freeBytes();
    EXPECT_EQ(forecast.run().lines().back(), "finished completed, last 5");
    return before - disk.freeBytes();
}

/// Folders and the file system's own records take a little room beside the photographs.
constexpr std::int64_t little = 2 * megabyte;

TEST(SpaceForecast, OnADiskInMemoryTheCopiesTakeWhatIsForeseen) {
    const auto disk = SmallDisk::mount(100 * megabyte);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    Forecast forecast(*disk / "card", *disk / "sorted/birds");
    EXPECT_EQ(forecast.estimate().verdict, Verdict::tight);
    EXPECT_EQ(forecast.estimate().requiredBytes, forecast.photographBytes());
    EXPECT_LE(std::abs(bytesUsed(forecast, *disk) - forecast.photographBytes()), little);
}

TEST(SpaceForecast, OnADiskInMemoryARunThatDoesNotFitMeetsTheFullDisk) {
    const auto disk = SmallDisk::mount(20 * megabyte);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    const TempFolder card;
    Forecast forecast(card.path(), *disk / "sorted");
    EXPECT_EQ(forecast.estimate().verdict, Verdict::doesNotFit);
    EXPECT_EQ(forecast.estimate().shortfallBytes(), forecast.photographBytes() - disk->freeBytes());
    EXPECT_EQ(forecast.run().sort().stopReason, StopReason::diskFull());
}

struct OneDisk {
    LoopDisk::Kind kind;
    Verdict verdict;
    const char* name;
};

class SpaceForecastOnOneDisk : public ::testing::TestWithParam<OneDisk> {};

TEST_P(SpaceForecastOnOneDisk, TheCopiesTakeWhatIsForeseen) {
    const auto disk = LoopDisk::mount(GetParam().kind);
    if (!disk) GTEST_SKIP() << "no such file system can be made and mounted here";
    const bool clones = GetParam().verdict == Verdict::clones;
    Forecast forecast(*disk / "card", *disk / "sorted/birds");
    EXPECT_EQ(forecast.estimate().verdict, GetParam().verdict);
    EXPECT_EQ(SpaceEstimator::willClone(*disk / "card", *disk / "sorted/birds"), clones);
    EXPECT_EQ(forecast.estimate().requiredBytes, clones ? 0 : forecast.photographBytes());
    EXPECT_LE(std::abs(bytesUsed(forecast, *disk) - forecast.estimate().requiredBytes), little);
}

INSTANTIATE_TEST_SUITE_P(Kinds, SpaceForecastOnOneDisk,
                         ::testing::Values(OneDisk{LoopDisk::Kind::ext4, Verdict::tight, "ext4"},
                                           OneDisk{LoopDisk::Kind::btrfs, Verdict::clones, "btrfs"},
                                           OneDisk{LoopDisk::Kind::xfs, Verdict::clones, "xfs"},
                                           OneDisk{LoopDisk::Kind::xfsWithoutReflinks,
                                                   Verdict::tight, "xfsWithoutReflinks"}),
                         [](const auto& disk) { return disk.param.name; });

TEST(SpaceForecast, BetweenTheSubvolumesOfABtrfsTheCopiesTakeNothing) {
    const auto disk = LoopDisk::mount(LoopDisk::Kind::btrfs);
    if (!disk) GTEST_SKIP() << "no btrfs can be made and mounted here";
    Forecast forecast(disk->makeSubvolume("card"), disk->makeSubvolume("sorted"));
    EXPECT_EQ(forecast.estimate().verdict, Verdict::clones);
    EXPECT_LE(std::abs(bytesUsed(forecast, *disk)), little);
}

TEST(SpaceForecast, OfFilesThatABtrfsKeepsInPlaceTheCopiesTakeTheirSize) {
    const auto disk = LoopDisk::mount(LoopDisk::Kind::btrfs);
    if (!disk) GTEST_SKIP() << "no btrfs can be made and mounted here";
    Forecast forecast(disk->makeFolderOfFilesKeptInPlace("card"), *disk / "sorted");
    EXPECT_EQ(forecast.estimate().verdict, Verdict::tight);
    EXPECT_LE(std::abs(bytesUsed(forecast, *disk) - forecast.photographBytes()), little);
}

TEST(SpaceForecast, FromOneCloningDiskToAnotherTheCopiesTakeTheirSize) {
    const auto card = LoopDisk::mount(LoopDisk::Kind::xfs);
    const auto disk = LoopDisk::mount(LoopDisk::Kind::xfs);
    if (!card || !disk) GTEST_SKIP() << "no XFS can be made and mounted here";
    Forecast forecast(*card / "card", *disk / "sorted");
    EXPECT_EQ(forecast.estimate().verdict, Verdict::tight);
    EXPECT_LE(std::abs(bytesUsed(forecast, *disk) - forecast.photographBytes()), little);
}

TEST(SpaceForecast, ClonesFindRoomWhereCopiesWouldNot) {
    const auto disk = LoopDisk::mount(LoopDisk::Kind::xfs);
    if (!disk) GTEST_SKIP() << "no XFS can be made and mounted here";
    Forecast forecast(*disk / "card", *disk / "sorted");
    const auto ballast = static_cast<std::size_t>(disk->freeBytes() - 20 * megabyte);
    writeFile(*disk / "ballast", std::string(ballast, 'x'));
    ASSERT_LT(disk->freeBytes(), forecast.photographBytes());
    EXPECT_LE(std::abs(bytesUsed(forecast, *disk)), little);
}

TEST(SpaceForecast, OnAnOrdinaryDiskARunThatDoesNotFitMeetsTheFullDisk) {
    const auto disk = LoopDisk::mount(LoopDisk::Kind::ext4);
    if (!disk) GTEST_SKIP() << "no ext4 can be made and mounted here";
    const auto ballast = static_cast<std::size_t>(disk->freeBytes() - 20 * megabyte);
    writeFile(*disk / "ballast", std::string(ballast, 'x'));
    disk->freeBytes();
    const TempFolder card;
    Forecast forecast(card.path(), *disk / "sorted");
    EXPECT_EQ(forecast.estimate().verdict, Verdict::doesNotFit);
    EXPECT_EQ(forecast.run().sort().stopReason, StopReason::diskFull());
}

}  // namespace
}  // namespace ornivo
