#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <stdexcept>

#include "engine/SortEngine.h"
#include "support/FailingFiles.h"

namespace ornivo {
namespace {

using testing::noSpaceLeft;
using testing::notPermitted;

/// An error with this many others in front of it.
Error behind(int levels, const Error& error) {
    Error outer = error;
    for (int i = 0; i < levels; ++i) {
        outer = Error("Wrapper", i, "wrapped", std::make_shared<const Error>(outer));
    }
    return outer;
}

TEST(OutOfSpace, IsToldByTheTwoCodesInTheirDomains) {
    EXPECT_TRUE(SortEngine::isOutOfSpace(Error(Error::cocoaDomain, 640, "full")));
    EXPECT_TRUE(SortEngine::isOutOfSpace(Error(Error::posixDomain, 28, "full")));
    EXPECT_TRUE(SortEngine::isOutOfSpace(noSpaceLeft()));
    EXPECT_FALSE(SortEngine::isOutOfSpace(Error(Error::cocoaDomain, 28, "other")));
    EXPECT_FALSE(SortEngine::isOutOfSpace(Error(Error::posixDomain, 640, "other")));
    EXPECT_FALSE(SortEngine::isOutOfSpace(Error(Error::posixDomain, 5, "other")));
    EXPECT_FALSE(SortEngine::isOutOfSpace(Error("Other", 28, "other")));
    EXPECT_FALSE(SortEngine::isOutOfSpace(std::runtime_error("other")));
}

TEST(OutOfSpace, AFullQuotaIsOneTooAndSaysSo) {
    const Error full = Error::posix(EDQUOT, "It couldn't be done");
    EXPECT_TRUE(SortEngine::isOutOfSpace(full));
    EXPECT_EQ(full.code(), EDQUOT);
    EXPECT_EQ(full.localizedDescription(), "It couldn't be done: Disk quota exceeded");
}

TEST(OutOfSpace, IsFoundBehindOtherErrorsDownToTheEighthLevel) {
    for (int levels = 0; levels <= 7; ++levels) {
        EXPECT_TRUE(SortEngine::isOutOfSpace(behind(levels, noSpaceLeft()))) << levels;
    }
    EXPECT_FALSE(SortEngine::isOutOfSpace(behind(8, noSpaceLeft())));
    EXPECT_FALSE(SortEngine::isOutOfSpace(behind(9, noSpaceLeft())));
    EXPECT_FALSE(SortEngine::isOutOfSpace(behind(2, notPermitted())));
}

}  // namespace
}  // namespace ornivo
