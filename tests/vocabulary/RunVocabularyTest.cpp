#include <gtest/gtest.h>

#include "vocabulary/FindResult.h"
#include "vocabulary/SortOptions.h"
#include "vocabulary/SortResult.h"
#include "vocabulary/StopReason.h"

namespace ornivo {

TEST(StopReason, OnlyAFullDiskCanBeResumed) {
    EXPECT_TRUE(StopReason::diskFull().isResumable());
    EXPECT_FALSE(StopReason::fatalError("").isResumable());
    EXPECT_FALSE(StopReason::fatalError("diskFull").isResumable());
    EXPECT_FALSE(StopReason::completed().isResumable());
    EXPECT_FALSE(StopReason::userCancelled().isResumable());
}

TEST(StopReason, FatalErrorsAreEqualWhenTheirWordsAre) {
    EXPECT_EQ(StopReason::fatalError("a"), StopReason::fatalError("a"));
    EXPECT_FALSE(StopReason::fatalError("a") == StopReason::fatalError("b"));
    EXPECT_FALSE(StopReason::fatalError("") == StopReason::completed());
    EXPECT_EQ(StopReason::fatalError("a").message(), "a");
}

TEST(SortResult, WhateverElseItIsGivenANewOneHasPromotedNothing) {
    SortResult result;
    result.sorted = 9;
    result.total = 12;
    EXPECT_EQ(result.burstPromoted, 0);
}

TEST(SortResult, EqualityComparesEveryCount) {
    SortResult a;
    SortResult b;
    EXPECT_EQ(a, b);
    b.burstPromoted = 1;
    EXPECT_FALSE(a == b);
}

TEST(FindResult, ANewOneIsEmptyAndComplete) {
    const FindResult result;
    EXPECT_EQ(result.matched + result.scanned + result.lowConfidence + result.errors, 0);
    EXPECT_FALSE(result.stopped);
    EXPECT_EQ(result.stopReason, StopReason::completed());
}

TEST(SortOptions, BurstsAreOffUntilSet) {
    EXPECT_EQ(SortOptions{}.burstInheritance, BurstInheritance::off);
}

TEST(SortOptions, TwoAbsentPlacesAreEqual) {
    SortOptions a;
    SortOptions b;
    EXPECT_EQ(a, b);
    b.assumedLocation = PhotoLocation::make(1, 2);
    EXPECT_FALSE(a == b);
}

}  // namespace ornivo
