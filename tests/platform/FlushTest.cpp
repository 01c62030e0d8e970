#include "platform/Flush.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;

TEST(Flush, AFileAndAFolderAreFlushed) {
    const TempFolder folder;
    EXPECT_EQ(Flush::file(writeFile(folder / "a", "bird")), 0);
    EXPECT_EQ(Flush::folder(folder.path()), 0);
    EXPECT_EQ(Flush::folder(""), 0) << "the current one";
}

TEST(Flush, AWriteProtectedFileIsFlushedToo) {
    const TempFolder folder;
    const fs::path file = writeFile(folder / "a", "bird");
    fs::permissions(file, fs::perms::owner_read);
    EXPECT_EQ(Flush::file(file), 0);
}

TEST(Flush, WhatIsMissingIsAFailure) {
    const TempFolder folder;
    EXPECT_EQ(Flush::file(folder / "gone"), ENOENT);
    EXPECT_EQ(Flush::folder(folder / "gone"), ENOENT);
    EXPECT_EQ(Flush::folder(writeFile(folder / "a", "")), ENOTDIR);
}

TEST(Flush, ALinkIsNotFollowedAndAPipeDoesNotBlock) {
    const TempFolder folder;
    fs::create_symlink(writeFile(folder / "a", ""), folder / "link");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(Flush::file(folder / "link"), ELOOP);
    EXPECT_NE(Flush::file(folder / "pipe"), 0);
}

TEST(Flush, AFileSystemThatCannotFlushFoldersIsNoFailure) {
    if (!fs::exists("/proc/self")) GTEST_SKIP() << "no such file system at hand";
    EXPECT_NE(Flush::file("/proc/self/status"), 0);
    EXPECT_EQ(Flush::folder("/proc/self"), 0);
}

}  // namespace
}  // namespace ornivo
