#include "engine/FolderSnapshot.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;

TEST(FolderSnapshot, HoldsEveryOrdinaryFileBelowTheFolder) {
    const TempFolder folder;
    writeFile(folder / "a.jpg", "1");
    writeFile(folder / "deep/er/b.jpg", "22");
    writeFile(folder / ".hidden", "333");
    fs::create_symlink(folder / "a.jpg", folder / "link");
    const FolderSnapshot snapshot = snapshotOf(folder.path());
    ASSERT_EQ(snapshot.size(), 3U);
    EXPECT_EQ(snapshot.at(folder / "a.jpg").length, 1U);
    EXPECT_EQ(snapshot.at(folder / "deep/er/b.jpg").length, 2U);
    EXPECT_EQ(snapshot.at(folder / ".hidden").length, 3U);
}

TEST(FolderSnapshot, AFolderThatIsMissingHasNone) {
    const TempFolder folder;
    EXPECT_TRUE(snapshotOf(folder / "missing").empty());
}

TEST(FolderSnapshot, AStampChangesWithTheLengthAndTheTime) {
    const TempFolder folder;
    const auto file = writeFile(folder / "a.jpg", "1");
    const auto before = stampOf(file);
    ASSERT_TRUE(before);
    EXPECT_EQ(stampOf(file), before);
    fs::last_write_time(file, fs::last_write_time(file) - std::chrono::seconds(10));
    EXPECT_NE(stampOf(file), before);
    fs::last_write_time(file, before->modified);
    EXPECT_EQ(stampOf(file), before);
    fs::resize_file(file, 2);
    fs::last_write_time(file, before->modified);
    EXPECT_NE(stampOf(file), before);
    EXPECT_EQ(stampOf(folder / "missing"), std::nullopt);
}

}  // namespace
}  // namespace ornivo
