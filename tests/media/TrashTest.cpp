#include "media/Trash.h"

#include <gmock/gmock.h>

#include "support/PrivateTrash.h"
#include "support/SmallDisk.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::privateTrash;
using ornivo::testing::readFile;
using ornivo::testing::SmallDisk;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;
using ::testing::StartsWith;

std::optional<Trash::Failure> failureOf(const fs::path& file) {
    try {
        Trash::trash(file, *Files::system());
    } catch (const Trash::Failure& failure) {
        return failure;
    }
    return std::nullopt;
}

TEST(Trash, TheFileGoesToTheTrashAndCanBeHadBack) {
    const TempFolder folder;
    Trash::trash(writeFile(folder / "IMG_1.JPG", "bird"), *Files::system());
    EXPECT_FALSE(fs::exists(folder / "IMG_1.JPG"));
    EXPECT_EQ(readFile(privateTrash() / "IMG_1.JPG"), "bird");
}

TEST(Trash, AFileOnAVolumeWithoutATrashStays) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    const auto failure = failureOf(writeFile(*disk / "IMG_1.JPG", "bird"));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->localizedDescription(),
              "Kept IMG_1.JPG — couldn't move it to the Trash: There is no trash for its volume");
    EXPECT_EQ(readFile(*disk / "IMG_1.JPG"), "bird");
}

TEST(Trash, AMissingFileIsToldInThePlatformsWords) {
    const TempFolder folder;
    const auto failure = failureOf(folder / "gone.jpg");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->path(), "gone.jpg");
    EXPECT_EQ(failure->reason(), "No such file or directory");
    EXPECT_EQ(failure->localizedDescription(),
              "Kept gone.jpg — couldn't move it to the Trash: No such file or directory");
}

TEST(Trash, TheMessageHoldsNoFolder) {
    const auto failure = failureOf("/Volumes/Card/DCIM/IMG_1.JPG");
    ASSERT_TRUE(failure);
    EXPECT_THAT(failure->localizedDescription(), StartsWith("Kept IMG_1.JPG — "));
    EXPECT_EQ(failure->localizedDescription().find('/'), std::string::npos);
}

TEST(Trash, ANameThatIsNoUTF8IsShownAsWellAsItCanBe) {
    const TempFolder folder;
    EXPECT_EQ(failureOf(folder / "M\xF6we.jpg")->path(), "M\uFFFDwe.jpg");
}

}  // namespace
}  // namespace ornivo
