#include "cli/PretendingFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include "platform/Error.h"
#include "support/TempFolder.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using Kind = PlanStep::Kind;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;

namespace {

/// The errno with which a call fails, 0 if it doesn't.
template <typename Call>
int failureOf(Call call) {
    try {
        call();
    } catch (const Error& error) {
        return error.domain() == Error::posixDomain ? error.code() : -1;
    }
    return 0;
}

std::vector<std::string> realTree(const fs::path& folder) {
    std::vector<std::string> paths;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        paths.push_back(entry.path().string());
    }
    std::ranges::sort(paths);
    return paths;
}

}  // namespace

/// After each test the disk is as it was before.
class PretendingFilesTest : public ::testing::Test {
protected:
    PretendingFilesTest() {
        writeFile(in / "a.jpg", "AAA");
        writeFile(in / "b.jpg", "BB");
        writeFile(out / "Hoopoe/a.jpg", "older");
        before = realTree(folder.path());
    }

    void TearDown() override { EXPECT_EQ(realTree(folder.path()), before); }

    TempFolder folder;
    fs::path in = folder / "in";
    fs::path out = folder / "out";
    std::vector<std::string> before;
    PretendingFiles files{Files::system()};
};

TEST_F(PretendingFilesTest, AtFirstEverythingIsAsOnTheDisk) {
    EXPECT_TRUE(files.exists(in / "a.jpg"));
    EXPECT_FALSE(files.exists(in / "c.jpg"));
    EXPECT_EQ(files.namesIn(in), (std::vector<std::string>{"a.jpg", "b.jpg"}));
    EXPECT_EQ(files.read(in / "a.jpg"), "AAA");
    EXPECT_EQ(files.modificationTime(in / "a.jpg"),
              Files::system()->modificationTime(in / "a.jpg"));
    EXPECT_TRUE(files.plan().empty());
}

TEST_F(PretendingFilesTest, AFolderIsToldFromAFileAndFromALink) {
    fs::create_directory_symlink(out, folder / "link");
    EXPECT_TRUE(files.isFolder(out / "Hoopoe"));
    EXPECT_FALSE(files.isFolder(out / "Hoopoe/a.jpg"));
    EXPECT_FALSE(files.isFolder(out / "none"));
    EXPECT_FALSE(files.isFolder(folder / "link"));
    files.createDirectories(out / "Wryneck");
    files.copy(in / "a.jpg", out / "Wryneck/a.jpg", Durability::cached);
    EXPECT_TRUE(files.isFolder(out / "Wryneck"));
    EXPECT_FALSE(files.isFolder(out / "Wryneck/a.jpg"));
    fs::remove(folder / "link");
}

TEST_F(PretendingFilesTest, ACopyIsThereForWhoeverAsksLater) {
    files.createDirectories(out / "Wryneck/2026-05-31");
    files.copy(in / "a.jpg", out / "Wryneck/2026-05-31/a.jpg", Durability::flushed);
    EXPECT_TRUE(files.exists(out / "Wryneck"));
    EXPECT_TRUE(files.exists(out / "Wryneck/2026-05-31/a.jpg"));
    EXPECT_EQ(files.namesIn(out), (std::vector<std::string>{"Hoopoe", "Wryneck"}));
    EXPECT_EQ(files.namesIn(out / "Wryneck/2026-05-31"), std::vector<std::string>{"a.jpg"});
    EXPECT_EQ(files.read(out / "Wryneck/2026-05-31/a.jpg"), "AAA");
    EXPECT_EQ(files.modificationTime(out / "Wryneck/2026-05-31/a.jpg"),
              files.modificationTime(in / "a.jpg"));
    EXPECT_EQ(files.plan(), (Plan{{Kind::copy, in / "a.jpg", out / "Wryneck/2026-05-31/a.jpg"}}));
}

TEST_F(PretendingFilesTest, ANameThatIsTakenStaysTaken) {
    const auto copyTo = [&](const fs::path& to) {
        return failureOf([&] { files.copy(in / "a.jpg", to, Durability::cached); });
    };
    EXPECT_EQ(copyTo(out / "Hoopoe/a.jpg"), EEXIST);
    EXPECT_EQ(copyTo(out / "Hoopoe/b.jpg"), 0);
    EXPECT_EQ(copyTo(out / "Hoopoe/b.jpg"), EEXIST);
    EXPECT_EQ(files.namesIn(out / "Hoopoe"), (std::vector<std::string>{"a.jpg", "b.jpg"}));
}

TEST_F(PretendingFilesTest, WhatCanNotBeCopiedFailsAsItWouldInEarnest) {
    const auto copy = [&](const fs::path& from, const fs::path& to) {
        return failureOf([&] { files.copy(from, to, Durability::cached); });
    };
    EXPECT_EQ(copy(in / "none.jpg", out / "none.jpg"), ENOENT);
    EXPECT_EQ(copy(in / "a.jpg", out / "NoFolder/a.jpg"), ENOENT);
    EXPECT_TRUE(files.plan().empty());
}

TEST_F(PretendingFilesTest, AFolderThatIsThereIsNoStep) {
    files.createDirectories(out / "Hoopoe");
    files.createDirectories(out / "New");
    files.createDirectories(out / "New");
    EXPECT_TRUE(files.namesIn(out / "New").empty());
    EXPECT_TRUE(files.plan().empty());
}

TEST_F(PretendingFilesTest, NoFolderIsMadeInPlaceOfAFileOrBelowOne) {
    files.copy(in / "a.jpg", out / "copy", Durability::cached);
    for (const fs::path& file : {in / "a.jpg", out / "copy"}) {
        EXPECT_EQ(failureOf([&] { files.createDirectories(file); }), EEXIST);
        EXPECT_EQ(failureOf([&] { files.createDirectories(file / "below"); }), ENOTDIR);
    }
}

TEST_F(PretendingFilesTest, WhatWasTrashedOrRemovedIsGone) {
    EXPECT_EQ(files.trash(in / "a.jpg"), std::nullopt);
    files.remove(in / "b.jpg");
    EXPECT_FALSE(files.exists(in / "a.jpg"));
    EXPECT_FALSE(files.exists(in / "b.jpg"));
    EXPECT_TRUE(files.namesIn(in).empty());
    EXPECT_EQ(failureOf([&] { files.trash(in / "a.jpg"); }), ENOENT);
    EXPECT_EQ(failureOf([&] { files.remove(in / "b.jpg"); }), ENOENT);
    EXPECT_EQ(failureOf([&] { static_cast<void>(files.read(in / "a.jpg")); }), ENOENT);
    EXPECT_EQ(files.modificationTime(in / "a.jpg"), std::nullopt);
    EXPECT_EQ(files.plan(),
              (Plan{{Kind::trash, in / "a.jpg", {}}, {Kind::remove, in / "b.jpg", {}}}));
}

TEST_F(PretendingFilesTest, ACopyOutlivesItsTrashedSource) {
    files.copy(in / "a.jpg", out / "a.jpg", Durability::flushed);
    files.trash(in / "a.jpg");
    EXPECT_EQ(files.read(out / "a.jpg"), "AAA");
    files.copy(in / "b.jpg", in / "a.jpg", Durability::flushed);
    EXPECT_TRUE(files.exists(in / "a.jpg"));
    EXPECT_EQ(files.read(in / "a.jpg"), "BB");
    EXPECT_EQ(files.namesIn(in), (std::vector<std::string>{"a.jpg", "b.jpg"}));
}

TEST_F(PretendingFilesTest, ACopyThatMovesOnIsToldAtItsLastPlace) {
    files.createDirectories(out / "_Uncertain");
    files.copy(in / "a.jpg", out / "_Uncertain/a.jpg", Durability::cached);
    files.move(out / "_Uncertain/a.jpg", out / "Hoopoe/a_1.jpg");
    EXPECT_FALSE(files.exists(out / "_Uncertain/a.jpg"));
    EXPECT_EQ(files.read(out / "Hoopoe/a_1.jpg"), "AAA");
    EXPECT_EQ(files.plan(), (Plan{{Kind::copy, in / "a.jpg", out / "Hoopoe/a_1.jpg"}}));
}

TEST_F(PretendingFilesTest, AFileThatWasThereAlreadyIsToldAsMoved) {
    files.move(out / "Hoopoe/a.jpg", out / "a.jpg");
    EXPECT_FALSE(files.exists(out / "Hoopoe/a.jpg"));
    EXPECT_EQ(files.read(out / "a.jpg"), "older");
    EXPECT_EQ(files.plan(), (Plan{{Kind::move, out / "Hoopoe/a.jpg", out / "a.jpg"}}));
    EXPECT_EQ(failureOf([&] { files.move(in / "a.jpg", in / "b.jpg"); }), EEXIST);
    EXPECT_EQ(failureOf([&] { files.move(in / "none.jpg", in / "c.jpg"); }), ENOENT);
}

TEST_F(PretendingFilesTest, WhatIsWrittenCanBeReadAndIsToldOnce) {
    const fs::path page = out / "review.html";
    files.replaceContents(page, "one");
    files.replaceContents(page, "two");
    EXPECT_EQ(files.read(page), "two");
    EXPECT_EQ(files.plan(), (Plan{{Kind::write, {}, page}}));
}

TEST_F(PretendingFilesTest, WhatIsNewlyWrittenTakesAFreeNameOnly) {
    const fs::path page = out / "new.html";
    files.create(page, "one");
    EXPECT_EQ(files.read(page), "one");
    EXPECT_EQ(failureOf([&] { files.create(page, "two"); }), EEXIST);
    EXPECT_EQ(failureOf([&] { files.create(out / "none/new.html", "two"); }), ENOENT);
    EXPECT_EQ(files.plan(), (Plan{{Kind::write, {}, page}}));
}

TEST_F(PretendingFilesTest, WhatIsAppendedFollowsWhatIsThere) {
    const fs::path list = out / "Hoopoe/a.jpg";
    files.openForAppending(list)->write("+1");
    files.openForAppending(list)->write("+2");
    files.openForAppending(out / "new.csv")->write("x");
    EXPECT_EQ(files.read(list), "older+1+2");
    EXPECT_EQ(files.read(out / "new.csv"), "x");
    EXPECT_EQ(files.plan(), (Plan{{Kind::write, {}, list}, {Kind::write, {}, out / "new.csv"}}));
}

}  // namespace ornivo::cli
