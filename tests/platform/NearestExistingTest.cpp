#include "platform/NearestExisting.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

using testing::TempFolder;
namespace fs = std::filesystem;

TEST(NearestExisting, IsThePathItselfIfItIsThere) {
    const TempFolder folder;
    EXPECT_EQ(nearestExisting(folder.path()), folder.path());
    EXPECT_EQ(nearestExisting(folder.path() / ""), folder.path());
    EXPECT_EQ(nearestExisting("/"), "/");
}

TEST(NearestExisting, IsTheOneAboveAllThatIsMissing) {
    const TempFolder folder;
    EXPECT_EQ(nearestExisting(folder / "birds/2026"), folder.path());
    EXPECT_EQ(nearestExisting(folder / "none/.././birds"), folder.path());
    EXPECT_EQ(nearestExisting("/no such folder/birds"), "/");
}

TEST(NearestExisting, OfARelativePathIsAbsolute) {
    EXPECT_EQ(nearestExisting(""), fs::current_path());
    EXPECT_EQ(nearestExisting("no such folder/birds"), fs::current_path());
}

TEST(NearestExisting, TakesALinkForWhatItLeadsTo) {
    const TempFolder folder;
    fs::create_directory_symlink(folder.path(), folder / "link");
    fs::create_directory_symlink("nowhere", folder / "dangling");
    EXPECT_EQ(nearestExisting(folder / "link/birds"), folder / "link");
    EXPECT_EQ(nearestExisting(folder / "dangling/birds"), folder.path());
}

}  // namespace
}  // namespace ornivo
