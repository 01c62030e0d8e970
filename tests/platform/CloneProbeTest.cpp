#include "platform/CloneProbe.h"

#include <gtest/gtest.h>

#include "support/LoopDisk.h"
#include "support/SmallDisk.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;

struct Answer {
    LoopDisk::Kind kind;
    bool clones;
    const char* name;
};

class CloneProbe : public ::testing::TestWithParam<Answer> {};

TEST_P(CloneProbe, IsAnsweredAlikeWithAFileAndWithoutAndLeavesNothing) {
    const auto disk = LoopDisk::mount(GetParam().kind);
    if (!disk) GTEST_SKIP() << "no such file system can be made and mounted here";
    fs::create_directories(*disk / "card/DCIM");
    fs::create_directory(*disk / "birds");
    EXPECT_EQ(clonesWhenAsked(*disk / "card", *disk / "birds"), GetParam().clones);
    writeFile(*disk / "card/DCIM/a.jpg", std::string(100'000, 'a'));
    const auto free = disk->freeBytes();
    EXPECT_EQ(clonesWhenAsked(*disk / "card", *disk / "birds"), GetParam().clones);
    EXPECT_TRUE(fs::is_empty(*disk / "birds"));
    // More may have come free since, of what was asked before.
    EXPECT_GE(disk->freeBytes(), free);
}

INSTANTIATE_TEST_SUITE_P(Kinds, CloneProbe,
                         ::testing::Values(Answer{LoopDisk::Kind::ext4, false, "ext4"},
                                           Answer{LoopDisk::Kind::btrfs, true, "btrfs"},
                                           Answer{LoopDisk::Kind::xfs, true, "xfs"},
                                           Answer{LoopDisk::Kind::xfsWithoutReflinks, false,
                                                  "xfsWithoutReflinks"}),
                         [](const auto& kind) { return kind.param.name; });

TEST(CloneProbeOfOneFolder, FilesThatABtrfsKeepsInPlaceAreNotShared) {
    const auto disk = LoopDisk::mount(LoopDisk::Kind::btrfs);
    if (!disk) GTEST_SKIP() << "no btrfs can be made and mounted here";
    const fs::path card = disk->makeFolderOfFilesKeptInPlace("card");
    fs::create_directory(*disk / "birds");
    writeFile(card / "a.jpg", std::string(100'000, 'a'));
    EXPECT_EQ(clonesWhenAsked(card, *disk / "birds"), false);
}

TEST(CloneProbeOfOneFolder, AnotherDiskSharesNothing) {
    const auto card = LoopDisk::mount(LoopDisk::Kind::xfs);
    const auto disk = LoopDisk::mount(LoopDisk::Kind::xfs);
    if (!card || !disk) GTEST_SKIP() << "no XFS can be made and mounted here";
    writeFile(*card / "a.jpg", "a");
    EXPECT_EQ(clonesWhenAsked(card->path(), disk->path()), false);
}

TEST(CloneProbeOfOneFolder, MemoryDoesNotClone) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    writeFile(*disk / "a.jpg", "a");
    EXPECT_EQ(clonesWhenAsked(disk->path(), disk->path()), false);
}

TEST(CloneProbeOfOneFolder, WhereNothingCanBeWrittenThereIsNoAnswer) {
    const TempFolder card;
    writeFile(card / "a.jpg", "a");
    EXPECT_EQ(clonesWhenAsked(card.path(), "/proc"), std::nullopt);
    EXPECT_EQ(clonesWhenAsked(card.path(), card / "none"), std::nullopt);
}

}  // namespace
}  // namespace ornivo
