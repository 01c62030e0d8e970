#include "vocabulary/IdentificationContext.h"

#include <gtest/gtest.h>

namespace ornivo {

TEST(IdentificationContext, AMonthOutsideTheYearIsNotKnown) {
    EXPECT_EQ(IdentificationContext(std::nullopt, 0).month, std::nullopt);
    EXPECT_EQ(IdentificationContext(std::nullopt, 13).month, std::nullopt);
}

TEST(IdentificationContext, EveryMonthOfTheYearStays) {
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(IdentificationContext(std::nullopt, month).month, month);
    }
}

TEST(IdentificationContext, WithoutArgumentsNothingIsKnown) {
    const IdentificationContext unknown;
    EXPECT_EQ(unknown.location, std::nullopt);
    EXPECT_EQ(unknown.month, std::nullopt);
}

}  // namespace ornivo
