#include "platform/GroupedNumber.h"

#include <gtest/gtest.h>

namespace ornivo {

TEST(GroupedNumber, DigitsAreGroupedAsTheLocaleDoes) {
    EXPECT_EQ(groupedNumber(999, "en_GB"), "999");
    EXPECT_EQ(groupedNumber(5060, "en_GB"), "5,060");
    EXPECT_EQ(groupedNumber(1234567, "de_DE"), "1.234.567");
    EXPECT_EQ(groupedNumber(1234567, "en_IN"), "12,34,567");
}

TEST(GroupedNumber, WithoutALocaleTheDigitsAreThere) {
    std::string digits;
    for (const char c : groupedNumber(5060)) {
        if (c >= '0' && c <= '9') digits += c;
    }
    EXPECT_EQ(digits, "5060");
}

}  // namespace ornivo
