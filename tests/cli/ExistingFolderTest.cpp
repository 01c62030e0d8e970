#include "cli/ExistingFolder.h"

#include <gtest/gtest.h>

#include "cli/UsageError.h"
#include "support/TempFolder.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;

namespace {

std::string refusalOf(const fs::path& path) {
    try {
        existingFolder(path);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "accepted";
}

}  // namespace

TEST(ExistingFolder, NamesComeAbsoluteWithoutDotsSlashesAndLinks) {
    const TempFolder root;
    const fs::path real = fs::canonical(root.path());
    fs::create_directories(root / "a");
    fs::create_directory_symlink(root / "a", root / "link");
    for (const char* const name : {"a", "a/", "./a", "a/../a", "link"}) {
        EXPECT_EQ(existingFolder(root / name), real / "a") << name;
    }
}

TEST(ExistingFolder, WhatIsNoFolderIsRefused) {
    const TempFolder root;
    writeFile(root / "file", "x");
    const auto quoted = [&](const char* name) { return "\"" + (root / name).string() + "\""; };
    EXPECT_EQ(refusalOf(root / "none"), "There is no folder " + quoted("none") + ".");
    EXPECT_EQ(refusalOf(root / "file"), quoted("file") + " is not a folder.");
    EXPECT_EQ(refusalOf(root / "file/below"),
              quoted("file/below") + " can't be read: Not a directory.");
    EXPECT_EQ(refusalOf(""), "There is no folder \"\".");
}

}  // namespace ornivo::cli
