#include "platform/FolderWalk.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The paths of a whole walk, relative to its folder.
std::vector<std::string> visited(const fs::path& folder) {
    std::vector<std::string> paths;
    walkFolder(folder, [&](const FolderEntry& entry) {
        paths.push_back(entry.path.lexically_relative(folder));
        return Descent::enter;
    });
    return paths;
}

TEST(FolderWalk, GoesDepthFirstAndInPlainTextOrder) {
    const TempFolder folder;
    for (const char* name : {"b/2", "b/1", "a", "c/d/e", ".h/x", "B"}) writeFile(folder / name, "");
    EXPECT_THAT(visited(folder.path()),
                ElementsAre(".h", ".h/x", "B", "a", "b", "b/1", "b/2", "c", "c/d", "c/d/e"));
}

TEST(FolderWalk, AFolderIsLeftOutOnRequest) {
    const TempFolder folder;
    writeFile(folder / "in/a", "");
    writeFile(folder / "out/b", "");
    std::vector<std::string> names;
    walkFolder(folder.path(), [&](const FolderEntry& entry) {
        names.push_back(entry.path.filename());
        return entry.path.filename() == "out" ? Descent::skip : Descent::enter;
    });
    EXPECT_THAT(names, ElementsAre("in", "a", "out"));
}

TEST(FolderWalk, LinksAreNeitherFileNorFolderAndAreNotFollowed) {
    const TempFolder folder;
    writeFile(folder / "real/file", "x");
    fs::create_directory(folder / "walked");
    fs::create_directory_symlink(folder / "real", folder / "walked/toFolder");
    fs::create_symlink(folder / "real/file", folder / "walked/toFile");
    fs::create_symlink("nowhere", folder / "walked/toNothing");
    fs::create_directory_symlink("..", folder / "walked/toAbove");

    int count = 0;
    walkFolder(folder / "walked", [&](const FolderEntry& entry) {
        ++count;
        EXPECT_FALSE(entry.isDirectory) << entry.path;
        EXPECT_FALSE(entry.isRegularFile) << entry.path;
        return Descent::enter;
    });
    EXPECT_EQ(count, 4);
}

TEST(FolderWalk, TheFolderItselfMayBeALink) {
    const TempFolder folder;
    writeFile(folder / "real/file", "");
    fs::create_directory_symlink(folder / "real", folder / "link");
    EXPECT_THAT(visited(folder / "link"), ElementsAre("file"));
}

TEST(FolderWalk, TellsFilesFromFolders) {
    const TempFolder folder;
    writeFile(folder / "x.jpg/file", "");
    walkFolder(folder.path(), [](const FolderEntry& entry) {
        EXPECT_EQ(entry.isDirectory, entry.path.filename() == "x.jpg");
        EXPECT_EQ(entry.isRegularFile, entry.path.filename() == "file");
        return Descent::enter;
    });
}

TEST(FolderWalk, BytesAreThoseThatTheDiskGivesTheFile) {
    const TempFolder folder;
    writeFile(folder / "full", std::string(100'000, 'x'));
    writeFile(folder / "sparse", "");
    fs::resize_file(folder / "sparse", 100'000'000);
    std::vector<std::int64_t> bytes;
    walkFolder(folder.path(), [&](const FolderEntry& entry) {
        bytes.push_back(entry.allocatedBytes);
        return Descent::enter;
    });
    ASSERT_EQ(bytes.size(), 2u);
    EXPECT_GE(bytes[0], 100'000);
    EXPECT_LT(bytes[0], 200'000);
    EXPECT_LT(bytes[1], 100'000);
}

TEST(FolderWalk, AMissingFolderAndAFileHoldNothing) {
    const TempFolder folder;
    writeFile(folder / "file", "");
    EXPECT_THAT(visited(folder / "missing"), IsEmpty());
    EXPECT_THAT(visited(folder / "file"), IsEmpty());
}

TEST(FolderWalk, AFolderThatCannotBeReadIsPassedOver) {
    if (geteuid() == 0) GTEST_SKIP() << "root may read every folder";
    const TempFolder folder;
    writeFile(folder / "a/hidden", "");
    writeFile(folder / "b/seen", "");
    fs::permissions(folder / "a", fs::perms::none);
    EXPECT_THAT(visited(folder.path()), ElementsAre("a", "b", "b/seen"));
    fs::permissions(folder / "a", fs::perms::owner_all);
}

TEST(FolderWalk, FoldersNestedBeyondTheLongestPathEndTheWalkThereOnly) {
    const TempFolder folder;
    const std::string name(200, 'd');
    const fs::path start = fs::current_path();
    fs::current_path(folder.path());
    for (int level = 0; level < 30; ++level) {
        fs::create_directory(name);
        fs::current_path(name);
    }
    fs::current_path(start);
    writeFile(folder / "z", "");

    const auto paths = visited(folder.path());
    EXPECT_GT(paths.size(), 15u);
    EXPECT_LT(paths.size(), 30u);
    EXPECT_EQ(paths.back(), "z");
}

TEST(FolderWalk, ReachesTheDeepestFolder) {
    constexpr std::size_t depth = 300;
    const TempFolder folder;
    fs::path deepest = folder.path();
    for (std::size_t level = 0; level < depth; ++level) deepest /= "d";
    writeFile(deepest / "file", "");
    const auto paths = visited(folder.path());
    EXPECT_EQ(paths.size(), depth + 1);
    EXPECT_EQ(folder / paths.back(), deepest / "file");
}

}  // namespace
}  // namespace ornivo
