#include <gtest/gtest.h>

#include "engine/SortEngine.h"

namespace ornivo {
namespace {

TEST(SequenceNumber, IsReadFromTheDigitsAtTheEndOfTheName) {
    EXPECT_EQ(SortEngine::sequenceNumber("IMG_4711.CR2", -1), 4711);
    EXPECT_EQ(SortEngine::sequenceNumber("DSC012.jpg", -1), 12);
    EXPECT_EQ(SortEngine::sequenceNumber("a1b7.jpg", -1), 7);
    EXPECT_EQ(SortEngine::sequenceNumber("0815.jpg", -1), 815);
    EXPECT_EQ(SortEngine::sequenceNumber("IMG_1.5.jpg", -1), 5);
    EXPECT_EQ(SortEngine::sequenceNumber("IMG_7", -1), 7);
    EXPECT_EQ(SortEngine::sequenceNumber("x9223372036854775807.jpg", -1), 9223372036854775807);
}

TEST(SequenceNumber, IsTheFallbackWhereThereIsNoneThatCanBeRead) {
    EXPECT_EQ(SortEngine::sequenceNumber("sunset.jpg", 42), 42);
    EXPECT_EQ(SortEngine::sequenceNumber("IMG_7a.jpg", 42), 42);
    EXPECT_EQ(SortEngine::sequenceNumber("", 42), 42);
    EXPECT_EQ(SortEngine::sequenceNumber("x123456789012345678901234567890.jpg", 42), 42);
    EXPECT_EQ(SortEngine::sequenceNumber("x9223372036854775808.jpg", 42), 42);
    EXPECT_EQ(SortEngine::sequenceNumber("IMG_٤٢.jpg", 42), 42);
    EXPECT_EQ(SortEngine::sequenceNumber("IMG_½.jpg", 42), 42);
}

TEST(SequenceNumber, OtherDigitsBelongToTheRunAndSpoilIt) {
    EXPECT_EQ(SortEngine::sequenceNumber("IMG_٤7.jpg", 42), 42);
}

}  // namespace
}  // namespace ornivo
