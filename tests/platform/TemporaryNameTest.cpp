#include "platform/TemporaryName.h"

#include <gmock/gmock.h>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::readFile;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;
using ::testing::MatchesRegex;

TEST(TemporaryName, IsHiddenShortAndInTheFolder) {
    const TempFolder folder;
    const TemporaryName name(folder.path());
    EXPECT_EQ(name.path().parent_path(), folder.path());
    EXPECT_THAT(name.path().filename().string(), MatchesRegex("\\.ornivo-[0-9a-f]{16}"));
    EXPECT_FALSE(fs::exists(name.path()));
}

TEST(TemporaryName, IsAnotherOneEachTime) {
    EXPECT_NE(TemporaryName("/tmp").path(), TemporaryName("/tmp").path());
}

TEST(TemporaryName, WhatStillHasItAtTheEndIsRemoved) {
    const TempFolder folder;
    {
        const TemporaryName name(folder.path());
        writeFile(name.path(), "a part");
    }
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(TemporaryName, WhatWasRenamedStays) {
    const TempFolder folder;
    {
        const TemporaryName name(folder.path());
        fs::rename(writeFile(name.path(), "whole"), folder / "a");
    }
    EXPECT_EQ(readFile(folder / "a"), "whole");
}

}  // namespace
}  // namespace ornivo
