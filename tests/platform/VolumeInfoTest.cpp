#include "platform/VolumeInfo.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include "support/LoopDisk.h"
#include "support/SmallDisk.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;

dev_t deviceOf(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_dev : 0;
}

TEST(VolumeInfo, OfAPathThatIsMissingIsAbsent) {
    const TempFolder folder;
    EXPECT_EQ(volumeOf(folder / "none"), std::nullopt);
    EXPECT_EQ(volumeOf(""), std::nullopt);
}

TEST(VolumeInfo, IsTheSameForFoldersAndFilesOfOneFileSystem) {
    const TempFolder folder;
    const fs::path file = writeFile(folder / "a/b.txt", "b");
    EXPECT_EQ(volumeOf(file)->identity, volumeOf(folder.path())->identity);
}

TEST(VolumeInfo, OfTheRootHasNoName) {
    EXPECT_EQ(volumeOf("/")->name, std::nullopt);
}

TEST(VolumeInfo, OfAFileSystemThatTellsNoSizesHasNoFreeBytes) {
    EXPECT_EQ(volumeOf("/proc")->availableBytes, 0);
    EXPECT_EQ(volumeOf("/proc")->name, "proc");
}

TEST(VolumeInfo, OfMemoryHasItsNameAndSizeAndDoesNotClone) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    const auto volume = volumeOf(disk->path()).value();
    EXPECT_EQ(volume.name, disk->path().filename());
    EXPECT_EQ(volume.availableBytes, 1 << 20);
    EXPECT_FALSE(volume.supportsCloning);
    EXPECT_NE(volume.identity, volumeOf("/")->identity);
}

TEST(VolumeInfo, TwoDisksOfOneKindDiffer) {
    const auto first = SmallDisk::mount(1 << 20);
    const auto second = SmallDisk::mount(1 << 20);
    if (!first || !second) GTEST_SKIP() << "this user may not mount a small file system";
    EXPECT_NE(volumeOf(first->path())->identity, volumeOf(second->path())->identity);
}

struct Cloning {
    LoopDisk::Kind kind;
    bool isSupported;
    const char* name;
};

class VolumeInfoOfEachKind : public ::testing::TestWithParam<Cloning> {};

TEST_P(VolumeInfoOfEachKind, SaysWhetherItClones) {
    const auto disk = LoopDisk::mount(GetParam().kind);
    if (!disk) GTEST_SKIP() << "no such file system can be made and mounted here";
    const auto volume = volumeOf(disk->path()).value();
    EXPECT_EQ(volume.supportsCloning, GetParam().isSupported);
    EXPECT_EQ(volume.name, LoopDisk::mountName);
    EXPECT_EQ(volume.availableBytes, disk->freeBytes());
}

INSTANTIATE_TEST_SUITE_P(Kinds, VolumeInfoOfEachKind,
                         ::testing::Values(Cloning{LoopDisk::Kind::ext4, false, "ext4"},
                                           Cloning{LoopDisk::Kind::btrfs, true, "btrfs"},
                                           Cloning{LoopDisk::Kind::xfs, true, "xfs"},
                                           Cloning{LoopDisk::Kind::xfsWithoutReflinks, false,
                                                   "xfsWithoutReflinks"}),
                         [](const auto& kind) { return kind.param.name; });

TEST(VolumeInfo, IsOneForAllSubvolumesOfABtrfs) {
    const auto disk = LoopDisk::mount(LoopDisk::Kind::btrfs);
    if (!disk) GTEST_SKIP() << "no btrfs can be made and mounted here";
    const fs::path subvolume = disk->makeSubvolume("photos");
    ASSERT_NE(deviceOf(subvolume), deviceOf(disk->path()));
    EXPECT_EQ(volumeOf(subvolume), volumeOf(disk->path()));
}

TEST(VolumeInfo, TwoBtrfsDiffer) {
    const auto first = LoopDisk::mount(LoopDisk::Kind::btrfs);
    const auto second = LoopDisk::mount(LoopDisk::Kind::btrfs);
    if (!first || !second) GTEST_SKIP() << "no btrfs can be made and mounted here";
    EXPECT_NE(volumeOf(first->path())->identity, volumeOf(second->path())->identity);
}

/// A folder that shows another one as well, for the scope of the object.
class SecondMount {
public:
    SecondMount(const fs::path& shown, fs::path at) : at_(std::move(at)) {
        fs::create_directories(at_);
        isMounted_ = ::mount(shown.c_str(), at_.c_str(), nullptr, MS_BIND, nullptr) == 0;
    }
    ~SecondMount() {
        if (isMounted_) ::umount2(at_.c_str(), MNT_DETACH);
    }
    SecondMount(const SecondMount&) = delete;
    SecondMount& operator=(const SecondMount&) = delete;

    bool isMounted() const { return isMounted_; }

private:
    fs::path at_;
    bool isMounted_ = false;
};

TEST(VolumeInfo, IsTheSameWhereAFolderIsMountedASecondTimeUnderThatName) {
    const TempFolder folder;
    fs::create_directory(folder / "photos");
    const SecondMount second(folder / "photos", folder / "Photos too");
    if (!second.isMounted()) GTEST_SKIP() << "this user may not mount a folder twice";
    EXPECT_EQ(volumeOf(folder / "Photos too")->identity, volumeOf(folder / "photos")->identity);
    EXPECT_EQ(volumeOf(folder / "Photos too")->name, "Photos too");
}

}  // namespace
}  // namespace ornivo
