#include "cli/RunFolders.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "cli/UsageError.h"
#include "support/SmallDisk.h"
#include "support/TempFolder.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using ornivo::testing::SmallDisk;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;

namespace {

std::string refusalOf(const fs::path& source, const fs::path& destination) {
    try {
        resolveFolders(source, destination);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "accepted";
}

std::string quoted(const fs::path& path) {
    return "\"" + path.string() + "\"";
}

}  // namespace

class RunFoldersTest : public ::testing::Test {
protected:
    void SetUp() override { fs::create_directories(source); }

    TempFolder folder;
    /// Without links, in case the folder for temporary files is one.
    fs::path root = fs::canonical(folder.path());
    fs::path source = root / "in";
    fs::path destination = root / "out";
};

TEST_F(RunFoldersTest, ADestinationThatIsMissingIsAllRight) {
    const RunFolders folders = resolveFolders(source, destination / "deep/down");
    EXPECT_EQ(folders.source, source);
    EXPECT_EQ(folders.destination, destination / "deep/down");
    EXPECT_EQ(folders.destinationInSource, std::nullopt);
    EXPECT_FALSE(fs::exists(destination));
}

TEST_F(RunFoldersTest, NamesComeAbsoluteWithoutDotsSlashesAndLinks) {
    fs::create_directory_symlink(source, root / "link");
    const RunFolders folders = resolveFolders(root / "link/", root / "in/.." / "out" / "." / "");
    EXPECT_EQ(folders.source, source);
    EXPECT_EQ(folders.destination, destination);
}

TEST_F(RunFoldersTest, ASourceThatIsMissingIsRefused) {
    EXPECT_EQ(refusalOf(root / "none", destination),
              "There is no folder " + quoted(root / "none") + ".");
    EXPECT_EQ(refusalOf("", destination), "There is no folder \"\".");
}

TEST_F(RunFoldersTest, ASingleFileAsSourceIsRefusedInAFriendlyWay) {
    const fs::path file = writeFile(source / "a.jpg", "x");
    EXPECT_EQ(refusalOf(file, destination),
              quoted(file) +
                  " is a file. Name the folder that it lies in: every photograph and clip of that "
                  "folder is taken.");
}

TEST_F(RunFoldersTest, ASourceOfAnotherKindIsRefused) {
    EXPECT_EQ(refusalOf("/dev/null", destination), "\"/dev/null\" is not a folder.");
}

TEST_F(RunFoldersTest, FoldersThatMayNotBeReadOrWrittenAreRefused) {
    if (geteuid() == 0) GTEST_SKIP() << "root may read and write everything";
    fs::create_directories(destination);
    fs::permissions(source, fs::perms::none);
    EXPECT_EQ(refusalOf(source, destination),
              quoted(source) + " can't be read: Permission denied.");
    fs::permissions(source, fs::perms::owner_all);
    fs::permissions(destination, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(refusalOf(source, destination / "new"),
              "Nothing can be written in " + quoted(destination) + ": Permission denied.");
    fs::permissions(destination, fs::perms::owner_all);
}

TEST_F(RunFoldersTest, ADestinationOnAReadOnlyDiskIsRefused) {
    const auto disk = SmallDisk::mount(65536);
    if (!disk || !disk->makeReadOnly()) GTEST_SKIP() << "nothing can be mounted here";
    EXPECT_EQ(refusalOf(source, *disk / "new"),
              "Nothing can be written in " + quoted(disk->path()) + ": Read-only file system.");
}

TEST_F(RunFoldersTest, ADestinationThatIsAFileOrLiesBelowOneIsRefused) {
    const fs::path file = writeFile(root / "taken", "x");
    const std::string sentence =
        quoted(file) + " is not a folder, so nothing can be filed into it.";
    EXPECT_EQ(refusalOf(source, file), sentence);
    EXPECT_EQ(refusalOf(source, file / "below"), sentence);
}

TEST_F(RunFoldersTest, ALinkThatLeadsNowhereIsNoDestination) {
    fs::create_symlink(root / "none", root / "link");
    EXPECT_EQ(refusalOf(source, root / "link"),
              quoted(root / "link") + " is not a folder, so nothing can be filed into it.");
}

TEST_F(RunFoldersTest, OneFolderUnderTwoNamesIsRefused) {
    fs::create_directory_symlink(source, root / "link");
    const std::string sentence =
        "The source and the destination are the same folder, so that what has been filed would "
        "be filed again. Name another destination.";
    EXPECT_EQ(refusalOf(source, source), sentence);
    EXPECT_EQ(refusalOf(source, source / ""), sentence);
    EXPECT_EQ(refusalOf(source, source / "sub/.."), sentence);
    EXPECT_EQ(refusalOf(source, root / "link"), sentence);
    EXPECT_EQ(refusalOf(root / "link", source), sentence);
}

TEST_F(RunFoldersTest, ADestinationInsideTheSourceIsTold) {
    fs::create_directory_symlink(source, root / "link");
    EXPECT_EQ(resolveFolders(source, source / "sorted").destinationInSource, source / "sorted");
    EXPECT_EQ(resolveFolders(root / "link", source / "a/b").destinationInSource, source / "a/b");
    EXPECT_EQ(resolveFolders(source, root / "link/a").destinationInSource, source / "a");
}

TEST_F(RunFoldersTest, ADestinationAboveOrBesideTheSourceIsAllRight) {
    EXPECT_EQ(resolveFolders(source, root).destinationInSource, std::nullopt);
    EXPECT_EQ(resolveFolders(source, root / "in2").destinationInSource, std::nullopt);
}

TEST_F(RunFoldersTest, FilesInAFolderAreLeftOutByWholeNames) {
    const std::vector<fs::path> files{"/in/a.jpg", "/in/sorted/b.jpg", "/in/sorted/x/c.jpg",
                                      "/in/sorted2/d.jpg", "/in/sorted.jpg"};
    EXPECT_EQ(filesOutside("/in/sorted", files),
              (std::vector<fs::path>{"/in/a.jpg", "/in/sorted2/d.jpg", "/in/sorted.jpg"}));
    EXPECT_EQ(filesOutside("/elsewhere", files), files);
}

}  // namespace ornivo::cli
