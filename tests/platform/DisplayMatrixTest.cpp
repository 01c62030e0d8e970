#include "platform/DisplayMatrix.h"

#include <gtest/gtest.h>

#include <array>

namespace ornivo {
namespace {

/// The matrix with the four numbers that turn, in the 16.16 form of the files.
std::array<std::int32_t, 9> matrix(double columnsByX, double rowsByX, double columnsByY,
                                   double rowsByY) {
    const auto fixed = [](double number) { return static_cast<std::int32_t>(number * 65536); };
    return {fixed(columnsByX), fixed(rowsByX), 0,      fixed(columnsByY), fixed(rowsByY), 0,
            fixed(320),        fixed(240),     1 << 30};
}

TEST(DisplayMatrix, EachTurnAndMirroringHasItsOrientation) {
    EXPECT_EQ(orientationOf(matrix(1, 0, 0, 1)), 1U);
    EXPECT_EQ(orientationOf(matrix(-1, 0, 0, 1)), 2U);
    EXPECT_EQ(orientationOf(matrix(-1, 0, 0, -1)), 3U);
    EXPECT_EQ(orientationOf(matrix(1, 0, 0, -1)), 4U);
    EXPECT_EQ(orientationOf(matrix(0, 1, 1, 0)), 5U);
    EXPECT_EQ(orientationOf(matrix(0, 1, -1, 0)), 6U);
    EXPECT_EQ(orientationOf(matrix(0, -1, -1, 0)), 7U);
    EXPECT_EQ(orientationOf(matrix(0, -1, 1, 0)), 8U);
}

TEST(DisplayMatrix, AMatrixThatSaysNothingIsUpright) {
    EXPECT_EQ(orientationOf(std::array<std::int32_t, 9>{}), 1U);
}

TEST(DisplayMatrix, ATurnBetweenRightAnglesIsTakenForTheNearer) {
    EXPECT_EQ(orientationOf(matrix(0.98, 0.17, -0.17, 0.98)), 1U);
    EXPECT_EQ(orientationOf(matrix(0.17, 0.98, -0.98, 0.17)), 6U);
}

TEST(DisplayMatrix, AStretchedTurnIsATurnAllTheSame) {
    EXPECT_EQ(orientationOf(matrix(1.33, 0, 0, 1)), 1U);
    EXPECT_EQ(orientationOf(matrix(0, 2, -2, 0)), 6U);
}

TEST(DisplayMatrix, TheGreatestNumbersAreNoTrouble) {
    std::array<std::int32_t, 9> greatest{};
    greatest.fill(INT32_MIN);
    EXPECT_EQ(orientationOf(greatest), 3U);
}

}  // namespace
}  // namespace ornivo
