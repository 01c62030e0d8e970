#include "platform/Numbers.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

namespace ornivo {
namespace {

TEST(Numbers, PaddingFillsUpWithZerosAndCutsNothing) {
    EXPECT_EQ(paddedText(1, 3), "001");
    EXPECT_EQ(paddedText(42, 3), "042");
    EXPECT_EQ(paddedText(999, 3), "999");
    EXPECT_EQ(paddedText(1000, 3), "1000");
}

TEST(Numbers, PlacesAfterThePointAreRoundedToTheNearest) {
    EXPECT_EQ(fixedText(-33.899, 2), "-33.90");
    EXPECT_EQ(fixedText(53.75, 0), "54");
    EXPECT_EQ(fixedText(0.25, 1), "0.2");
    EXPECT_EQ(fixedText(1e-11, 10), "0.0000000000");
}

TEST(Numbers, FourPlacesAreRounded) {
    EXPECT_EQ(fourPlaces(0.5), "0.5000");
    EXPECT_EQ(fourPlaces(1), "1.0000");
    EXPECT_EQ(fourPlaces(0), "0.0000");
    EXPECT_EQ(fourPlaces(0.53754999), "0.5375");
    EXPECT_EQ(fourPlaces(0.53755001), "0.5376");
    EXPECT_EQ(fourPlaces(0.99996), "1.0000");
}

TEST(Numbers, TheShortestTextReadsBackAsTheSameNumber) {
    EXPECT_EQ(shortestText(51.5), "51.5");
    EXPECT_EQ(shortestText(-0.12), "-0.12");
    EXPECT_EQ(shortestText(7), "7");
    EXPECT_EQ(shortestText(0.1 + 0.2), "0.30000000000000004");
}

TEST(Numbers, TheLongestNumbersHaveRoom) {
    const double largest = -std::numeric_limits<double>::max();
    EXPECT_EQ(std::strtod(fourPlaces(largest).c_str(), nullptr), largest);
    EXPECT_EQ(std::strtod(shortestText(largest).c_str(), nullptr), largest);
}

}  // namespace
}  // namespace ornivo
