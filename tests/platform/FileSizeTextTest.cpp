#include "platform/FileSizeText.h"

#include <gtest/gtest.h>

#include <limits>

namespace ornivo {
namespace {

std::string text(std::int64_t bytes) {
    return fileSizeText(bytes, "en_GB");
}

TEST(FileSizeText, BytesAreCountedWhole) {
    EXPECT_EQ(text(0), "0 bytes");
    EXPECT_EQ(text(1), "1 byte");
    EXPECT_EQ(text(999), "999 bytes");
}

TEST(FileSizeText, LargerUnitsHaveMoreDecimals) {
    EXPECT_EQ(text(1'000), "1 kB");
    EXPECT_EQ(text(12'345), "12 kB");
    EXPECT_EQ(text(1'250'000), "1.3 MB");
    EXPECT_EQ(text(1'200'000'000), "1.2 GB");
    EXPECT_EQ(text(12'345'678'901), "12.35 GB");
    EXPECT_EQ(text(2'000'000'000'000), "2 TB");
    EXPECT_EQ(text(3'141'592'653'589'793), "3.14 PB");
}

TEST(FileSizeText, ASizeThatRoundsUpToAThousandTakesTheNextUnit) {
    EXPECT_EQ(text(999'499), "999 kB");
    EXPECT_EQ(text(999'500), "1 MB");
    EXPECT_EQ(text(999'949'999), "999.9 MB");
    EXPECT_EQ(text(999'950'000), "1 GB");
    EXPECT_EQ(text(999'995'000'000), "1 TB");
}

TEST(FileSizeText, TheLargestSizeThereIsHasAText) {
    EXPECT_EQ(text(std::numeric_limits<std::int64_t>::max()), "9,223.37 PB");
}

TEST(FileSizeText, IsWrittenAsTheLocaleDoes) {
    EXPECT_EQ(fileSizeText(1'250'000'000, "de_DE"), "1,25\u00a0GB");
}

TEST(FileSizeText, WithoutALocaleTheDigitsAreThere) {
    EXPECT_NE(fileSizeText(42).find("42"), std::string::npos);
}

}  // namespace
}  // namespace ornivo
