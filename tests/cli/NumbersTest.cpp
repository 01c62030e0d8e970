#include "cli/Numbers.h"

#include <gtest/gtest.h>

namespace ornivo::cli {

TEST(Numbers, OneDecimalIsRounded) {
    EXPECT_EQ(withOneDecimal(0), "0.0");
    EXPECT_EQ(withOneDecimal(8.06), "8.1");
    EXPECT_EQ(withOneDecimal(59.94), "59.9");
    EXPECT_EQ(withOneDecimal(-1.25), "-1.2");
    EXPECT_EQ(withOneDecimal(1e300).size(), 303U);
}

TEST(Numbers, PercentagesRoundHalvesUp) {
    EXPECT_EQ(percentage(0), "0%");
    EXPECT_EQ(percentage(0.004), "0%");
    EXPECT_EQ(percentage(0.125), "13%");
    EXPECT_EQ(percentage(0.9349), "93%");
    EXPECT_EQ(percentage(1), "100%");
}

TEST(Numbers, OnlyOneIsSingular) {
    EXPECT_EQ(counted(0, "file", "files"), "0 files");
    EXPECT_EQ(counted(1, "file", "files"), "1 file");
    EXPECT_EQ(counted(2, "file", "files"), "2 files");
}

TEST(Numbers, ANumberMayHaveAnExponent) {
    EXPECT_EQ(parseNumber("1e-05"), 0.00001);
    EXPECT_EQ(parseNumber("-0.12"), -0.12);
    for (const char* const text : {"", " 1", "1 ", "+1", "0x10", "1e", "e5"}) {
        EXPECT_EQ(parseNumber(text), std::nullopt) << text;
    }
}

TEST(Numbers, OnlyAWholeDecimalIsRead) {
    EXPECT_EQ(parseDecimal("51.5"), 51.5);
    EXPECT_EQ(parseDecimal("-0.12"), -0.12);
    EXPECT_EQ(parseDecimal("7"), 7.0);
    for (const char* const text :
         {"", " ", "1 ", " 1", "+1", "1,5", "1e3", "0x10", "1.5N", "--1"}) {
        EXPECT_EQ(parseDecimal(text), std::nullopt) << text;
    }
}

TEST(Numbers, OnlyAWholeNumberIsRead) {
    EXPECT_EQ(parseWhole("38"), 38);
    EXPECT_EQ(parseWhole("-1"), -1);
    EXPECT_EQ(parseWhole("010"), 10);
    for (const char* const text : {"", "1.0", "1 ", "+1", "0x10", "99999999999", "one"}) {
        EXPECT_EQ(parseWhole(text), std::nullopt) << text;
    }
}

}  // namespace ornivo::cli
