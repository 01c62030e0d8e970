#include "platform/UnnamedFile.h"

#include <gtest/gtest.h>

#include "support/SmallDisk.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;

class UnnamedFileOnASmallDisk : public ::testing::Test {
protected:
    void SetUp() override {
        if (!disk_) GTEST_SKIP() << "this user may not mount a small file system";
    }

    const std::unique_ptr<SmallDisk> disk_ = SmallDisk::mount(1 << 20);
};

TEST_F(UnnamedFileOnASmallDisk, TakesRoomAndGivesItBack) {
    const auto before = disk_->freeBytes();
    auto room = UnnamedFile::ofLength(disk_->path(), 256 << 10);
    ASSERT_TRUE(room);
    EXPECT_EQ(disk_->freeBytes(), before - (256 << 10));
    EXPECT_TRUE(fs::is_empty(disk_->path()));
    room.reset();
    EXPECT_EQ(disk_->freeBytes(), before);
}

TEST_F(UnnamedFileOnASmallDisk, MoreThanThereIsCanNotBeKeptAndTakesNothing) {
    const auto before = disk_->freeBytes();
    EXPECT_FALSE(UnnamedFile::ofLength(disk_->path(), 2 << 20));
    EXPECT_EQ(disk_->freeBytes(), before);
}

TEST_F(UnnamedFileOnASmallDisk, AFolderThatIsYetToBeMadeCountsForTheOneAboveIt) {
    const auto before = disk_->freeBytes();
    const auto room = UnnamedFile::ofLength(*disk_ / "birds/2024", 256 << 10);
    ASSERT_TRUE(room);
    EXPECT_LT(disk_->freeBytes(), before);
}

TEST(UnnamedFile, AFolderThatMayNotBeWrittenKeepsNone) {
    EXPECT_FALSE(UnnamedFile::ofLength("/proc", 4096));
}

}  // namespace
}  // namespace ornivo
