#include "identification/EditDistance.h"

#include <gtest/gtest.h>

#include <string>

namespace ornivo {

TEST(EditDistance, InsertingDeletingAndReplacingCostOneEach) {
    EXPECT_EQ(boundedEditDistance("kerala", "kerala", 2), 0u);
    EXPECT_EQ(boundedEditDistance("kerala", "keralla", 2), 1u);
    EXPECT_EQ(boundedEditDistance("keralla", "kerala", 2), 1u);
    EXPECT_EQ(boundedEditDistance("kerala", "kerela", 2), 1u);
    EXPECT_EQ(boundedEditDistance("kitten", "sitting", 3), 3u);
    EXPECT_EQ(boundedEditDistance("", "ab", 2), 2u);
}

TEST(EditDistance, TwoNeighboursSwappedAreTwo) {
    EXPECT_EQ(boundedEditDistance("delhi", "dehli", 2), 2u);
}

TEST(EditDistance, BeyondTheBoundTheAnswerIsOneMoreThanIt) {
    EXPECT_EQ(boundedEditDistance("kitten", "sitting", 2), 3u);
    EXPECT_EQ(boundedEditDistance("a", "abcdef", 2), 3u);
    EXPECT_EQ(boundedEditDistance("abcdef", "uvwxyz", 1), 2u);
}

TEST(EditDistance, ACharacterOfSeveralBytesIsOne) {
    EXPECT_EQ(boundedEditDistance("東京", "東", 1), 1u);
    EXPECT_EQ(boundedEditDistance("e\u0301", "e", 2), 1u);
}

}  // namespace ornivo
