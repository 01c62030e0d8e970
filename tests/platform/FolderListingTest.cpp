#include "platform/FolderListing.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "platform/Error.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(FolderListing, NamesComeInPlainTextOrderHiddenOnesIncluded) {
    const TempFolder folder;
    for (const char* name : {"b", "a10", "a9", "B", ".hidden", "é"}) writeFile(folder / name, "");
    fs::create_directory(folder / "c");
    EXPECT_THAT(FolderListing::names(folder.path()),
                ElementsAre(".hidden", "B", "a10", "a9", "b", "c", "é"));
}

TEST(FolderListing, NamesThatReadAlikeStandInTheOrderOfTheirBytes) {
    const TempFolder folder;
    writeFile(folder / "\u00E9", "");
    writeFile(folder / "e\u0301", "");
    EXPECT_THAT(FolderListing::names(folder.path()), ElementsAre("e\u0301", "\u00E9"));
}

TEST(FolderListing, NamesAreBytes) {
    const TempFolder folder;
    writeFile(folder / "M\xF6we.jpg", "");
    EXPECT_THAT(FolderListing::names(folder.path()), ElementsAre("M\xF6we.jpg"));
}

TEST(FolderListing, AnEmptyFolderHasNoNames) {
    const TempFolder folder;
    EXPECT_THAT(FolderListing::names(folder.path()), IsEmpty());
}

TEST(FolderListing, EntriesTellWhatTheyAreAndLinksAreLinks) {
    const TempFolder folder;
    writeFile(folder / "file", "bird");
    fs::create_directory(folder / "folder");
    fs::create_symlink("file", folder / "link");

    const auto entries = FolderListing::entries(folder.path());
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].name, "file");
    EXPECT_TRUE(entries[0].isRegularFile);
    EXPECT_GT(entries[0].allocatedBytes, 0);
    EXPECT_EQ(entries[1].name, "folder");
    EXPECT_TRUE(entries[1].isDirectory);
    EXPECT_EQ(entries[2].name, "link");
    EXPECT_FALSE(entries[2].isRegularFile);
    EXPECT_FALSE(entries[2].isDirectory);
}

TEST(FolderListing, AMissingFolderIsAnError) {
    const TempFolder folder;
    try {
        FolderListing::names(folder / "gone");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.localizedDescription(),
                  "The folder \"gone\" couldn't be listed: No such file or directory");
        EXPECT_EQ(error.code(), ENOENT);
    }
}

}  // namespace
}  // namespace ornivo
