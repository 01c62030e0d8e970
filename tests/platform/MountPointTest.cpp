#include "platform/MountPoint.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/SmallDisk.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;

fs::path found(const std::string& mounts, std::uint64_t number) {
    std::istringstream lines(mounts);
    return mountPointIn(lines, number).value_or("none");
}

TEST(MountPoint, IsFoundByTheNumberOfTheMount) {
    const std::string mounts =
        "22 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda rw\n"
        "220 22 8:17 / /media/CARD rw - vfat /dev/sdb1 rw\n"
        "23 22 0:5 / /dev rw - devtmpfs none rw\n";
    EXPECT_EQ(found(mounts, 22), "/");
    EXPECT_EQ(found(mounts, 220), "/media/CARD");
    EXPECT_EQ(found(mounts, 2), "none");
    EXPECT_EQ(found("", 22), "none");
}

TEST(MountPoint, MayHoldBlanksAndBackslashes) {
    EXPECT_EQ(found("5 1 8:1 / /media/Bird\\040disk\\134a rw - ext4 /dev/sdb1 rw\n", 5),
              "/media/Bird disk\\a");
}

TEST(MountPoint, ALineThatBreaksOffIsPassedOver) {
    EXPECT_EQ(found("5 1 8:1\n5 1 8:1 / /data rw\n", 5), "/data");
    EXPECT_EQ(found("none at all\n", 0), "none");
}

TEST(MountPoint, OfTheRootIsTheRoot) {
    const auto root = mountPointOf("/");
    if (!root) GTEST_SKIP() << "the root of this process is no mount, as after a chroot";
    EXPECT_EQ(root, "/");
}

TEST(MountPoint, OfAFolderOnADiskIsWhereTheDiskIsMounted) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    fs::create_directories(*disk / "a/b");
    EXPECT_EQ(mountPointOf(*disk / "a/b"), disk->path());
}

TEST(MountPoint, OfAPathThatIsMissingIsAbsent) {
    const TempFolder folder;
    EXPECT_EQ(mountPointOf(folder / "none"), std::nullopt);
}

}  // namespace
}  // namespace ornivo
