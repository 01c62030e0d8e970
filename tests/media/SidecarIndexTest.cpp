#include "media/SidecarIndex.h"

#include <gmock/gmock.h>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;
using Sidecars::Companion;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Key;

class SidecarIndexTest : public ::testing::Test {
protected:
    std::vector<Companion> companions(const fs::path& photo) {
        return index_.companions(photo, *Files::system());
    }

    const TempFolder folder_;
    SidecarIndex index_;
};

TEST_F(SidecarIndexTest, CompanionsLieInTheFolderOfThePhotograph) {
    for (const char* name : {"IMG_1.jpg", "IMG_1.xmp", "IMG_1.jpg.dop", "IMG_2.xmp"}) {
        writeFile(folder_ / name, "");
    }
    EXPECT_THAT(companions(folder_ / "IMG_1.jpg"),
                ElementsAre(Companion{folder_ / "IMG_1.jpg.dop", true},
                            Companion{folder_ / "IMG_1.xmp", false}));
}

TEST_F(SidecarIndexTest, HiddenFilesAreNoException) {
    writeFile(folder_ / ".a.xmp", "");
    EXPECT_THAT(companions(folder_ / ".a.jpg"), ElementsAre(Companion{folder_ / ".a.xmp", false}));
}

TEST_F(SidecarIndexTest, AFolderIsListedOnce) {
    writeFile(folder_ / "a.xmp", "");
    companions(folder_ / "a.jpg");
    writeFile(folder_ / "b.xmp", "");
    fs::remove(folder_ / "a.xmp");
    EXPECT_THAT(companions(folder_ / "b.jpg"), IsEmpty());
    EXPECT_THAT(companions(folder_ / "a.jpg"), ElementsAre(Companion{folder_ / "a.xmp", false}));
}

TEST_F(SidecarIndexTest, AForgottenFolderIsListedAnew) {
    companions(folder_ / "b.jpg");
    writeFile(folder_ / "b.xmp", "");
    index_.forget(folder_ / "x/..");
    EXPECT_THAT(index_.listings, IsEmpty());
    EXPECT_THAT(companions(folder_ / "b.jpg"), ElementsAre(Companion{folder_ / "b.xmp", false}));
}

TEST_F(SidecarIndexTest, ForgettingAFolderThatWasNeverListedDoesNothing) {
    companions(folder_ / "a.jpg");
    index_.forget(folder_ / "other");
    EXPECT_EQ(index_.listings.size(), 1u);
}

TEST_F(SidecarIndexTest, AFolderThatCannotBeListedHasNoneAndIsNotAskedAgain) {
    EXPECT_THAT(companions(folder_ / "later/a.jpg"), IsEmpty());
    writeFile(folder_ / "later/a.xmp", "");
    EXPECT_THAT(companions(folder_ / "later/a.jpg"), IsEmpty());
}

TEST_F(SidecarIndexTest, FoldersAreKnownByTheirStandardizedPath) {
    writeFile(folder_ / "x/a.xmp", "");
    fs::create_directory(folder_ / "y");
    companions(folder_ / "x/a.jpg");
    EXPECT_THAT(companions(folder_ / "y/../x/a.jpg"),
                ElementsAre(Companion{folder_ / "y/../x/a.xmp", false}));
    EXPECT_THAT(index_.listings, ElementsAre(Key((folder_ / "x").string())));
}

TEST_F(SidecarIndexTest, APhotographNamedWithoutAFolderLiesInTheCurrentOne) {
    const fs::path before = fs::current_path();
    fs::current_path(folder_.path());
    writeFile(fs::current_path() / "a.xmp", "");
    EXPECT_THAT(companions("a.jpg"), ElementsAre(Companion{"a.xmp", false}));
    fs::current_path(before);
}

}  // namespace
}  // namespace ornivo
