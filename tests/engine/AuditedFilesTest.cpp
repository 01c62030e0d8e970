#include "engine/AuditedFiles.h"

#include <gtest/gtest.h>

#include "support/FailingFiles.h"
#include "support/PrivateTrash.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;

class AuditedFilesTest : public ::testing::Test {
protected:
    TempFolder folder_;
    std::shared_ptr<FailingFiles> real_ = std::make_shared<FailingFiles>();
    AuditedFiles files_{real_};
};

TEST_F(AuditedFilesTest, KeepsAnAccountOfWhatWasDone) {
    const auto source = writeFile(folder_ / "AuditedFiles.jpg", "12345");
    files_.copy(source, folder_ / "copy.jpg", Durability::flushed);
    files_.move(folder_ / "copy.jpg", folder_ / "moved.jpg");
    files_.trash(source);

    const auto account = files_.account();
    ASSERT_EQ(account.copies.size(), 1U);
    EXPECT_EQ(account.copies[0].from, source);
    EXPECT_EQ(account.copies[0].to, folder_ / "copy.jpg");
    EXPECT_EQ(account.copies[0].durability, Durability::flushed);
    EXPECT_EQ(account.copies[0].length, 5U);
    EXPECT_TRUE(account.copies[0].stood);
    ASSERT_EQ(account.moves.size(), 1U);
    EXPECT_EQ(account.moves[0].from, folder_ / "copy.jpg");
    EXPECT_EQ(account.moves[0].to, folder_ / "moved.jpg");
    EXPECT_EQ(account.trashed, std::vector{source});
    EXPECT_EQ(readFile(privateTrash() / "AuditedFiles.jpg"), "12345");
}

TEST_F(AuditedFilesTest, WhatFailedIsNotInTheAccount) {
    const auto source = writeFile(folder_ / "a.jpg", "12345");
    real_->fail(Operation::copy, nth(1), noSpaceLeft());
    real_->fail(Operation::move, nth(1), noSpaceLeft());
    real_->fail(Operation::trash, nth(1), noSpaceLeft());
    EXPECT_THROW(files_.copy(source, folder_ / "b.jpg", Durability::cached), Error);
    EXPECT_THROW(files_.move(source, folder_ / "b.jpg"), Error);
    EXPECT_THROW(files_.trash(source), Error);
    const auto account = files_.account();
    EXPECT_TRUE(account.copies.empty());
    EXPECT_TRUE(account.moves.empty());
    EXPECT_TRUE(account.trashed.empty());
}

TEST_F(AuditedFilesTest, AClosedAccountIsFollowedByAnEmptyOne) {
    files_.copy(writeFile(folder_ / "a.jpg", "1"), folder_ / "b.jpg", Durability::cached);
    files_.closeAccount();
    EXPECT_TRUE(files_.account().copies.empty());
}

TEST_F(AuditedFilesTest, PathsAreStandardised) {
    writeFile(folder_ / "a.jpg", "1");
    fs::create_directory(folder_ / "x");
    files_.copy(folder_ / "./a.jpg", folder_ / "x/../b.jpg", Durability::cached);
    EXPECT_EQ(files_.account().copies.at(0).from, folder_ / "a.jpg");
    EXPECT_EQ(files_.account().copies.at(0).to, folder_ / "b.jpg");
}

TEST_F(AuditedFilesTest, OnlyOrdinaryFilesHaveALength) {
    EXPECT_EQ(lengthOf(writeFile(folder_ / "a.jpg", "123")), 3U);
    EXPECT_EQ(lengthOf(folder_.path()), std::nullopt);
    EXPECT_EQ(lengthOf(folder_ / "missing"), std::nullopt);
    fs::create_symlink(folder_ / "a.jpg", folder_ / "link");
    EXPECT_EQ(lengthOf(folder_ / "link"), std::nullopt);
}

}  // namespace
}  // namespace ornivo
