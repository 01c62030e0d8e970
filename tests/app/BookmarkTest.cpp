#include "app/Bookmark.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ornivo::app {
namespace {

using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;
namespace fs = std::filesystem;

TEST(Bookmark, LeadsBackToItsFolder) {
    const TempFolder home;
    for (const char* name : {"plain", "with\nline ends\n", "no UTF-8 \xFF"}) {
        const fs::path folder = home / name;
        fs::create_directory(folder);
        const auto bookmark = Bookmark::make(folder);
        ASSERT_TRUE(bookmark);
        EXPECT_EQ(Bookmark::resolve(*bookmark), (Bookmark::Resolved{folder, false}));
    }
}

TEST(Bookmark, OfAFolderThatHasMovedOrGoneLeadsNowhere) {
    const TempFolder home;
    fs::create_directory(home / "a");
    const auto bookmark = Bookmark::make(home / "a");
    fs::rename(home / "a", home / "b");
    EXPECT_EQ(Bookmark::resolve(*bookmark), std::nullopt);
    writeFile(home / "a", "a file now");
    EXPECT_EQ(Bookmark::resolve(*bookmark), std::nullopt);
}

TEST(Bookmark, IsStaleWhenAnotherFolderHasTakenThePlace) {
    const TempFolder home;
    fs::create_directory(home / "a");
    const auto bookmark = Bookmark::make(home / "a");
    fs::rename(home / "a", home / "b");
    fs::create_directory(home / "a");
    EXPECT_EQ(Bookmark::resolve(*bookmark), (Bookmark::Resolved{home / "a", true}));
}

TEST(Bookmark, CantBeMadeOfWhatIsNoFolder) {
    const TempFolder home;
    EXPECT_EQ(Bookmark::make(home / "missing"), std::nullopt);
    EXPECT_EQ(Bookmark::make(writeFile(home / "file", "x")), std::nullopt);
    EXPECT_EQ(Bookmark::make("relative"), std::nullopt);
}

TEST(Bookmark, OtherBytesLeadNowhere) {
    for (const char* bytes : {"", "folder", "folder\n1\n2", "folder\n1\n2\n", "folder\n1\n2\ntmp",
                              "file\n1\n2\n/tmp", "\n\n\n\n"}) {
        EXPECT_EQ(Bookmark::resolve(bytes), std::nullopt) << bytes;
    }
}

}  // namespace
}  // namespace ornivo::app
