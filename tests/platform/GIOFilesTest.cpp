#include "platform/GIOFiles.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;

constexpr int plainFailure = 0;
constexpr int notFound = 1;
constexpr int noSpace = 12;

TEST(GIOFiles, AFailureOfTheSystemKeepsItsErrno) {
    EXPECT_EQ(GIOFiles::errnoBehind(noSpace, "any words"), ENOSPC);
    EXPECT_EQ(GIOFiles::errnoBehind(notFound, "any words"), ENOENT);
}

TEST(GIOFiles, AnErrnoThatGIOHasNoCodeForIsKnownByItsWords) {
    for (const int value : {EDQUOT, EFBIG, EIO}) {
        const std::string words = std::string("Error writing to file: ") + std::strerror(value);
        EXPECT_EQ(GIOFiles::errnoBehind(plainFailure, words), value);
    }
    EXPECT_FALSE(GIOFiles::errnoBehind(plainFailure, "Something else"));
}

TEST(GIOFiles, ACopyNeverReplacesAFile) {
    const TempFolder folder;
    const auto failure =
        GIOFiles::copy(writeFile(folder / "a", "new"), writeFile(folder / "b", "old"));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errnoValue, EEXIST);
    EXPECT_EQ(ornivo::testing::readFile(folder / "b"), "old");
}

}  // namespace
}  // namespace ornivo
