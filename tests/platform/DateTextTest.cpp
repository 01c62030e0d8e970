#include "platform/DateText.h"

#include <gtest/gtest.h>

namespace ornivo {
namespace {

/// 8 May 2026, 07:05 in London, which is an hour ahead of UTC in summer.
constexpr std::chrono::sys_seconds moment{std::chrono::seconds(1'778'220'300)};
constexpr const char* pattern = "d MMMM yyyy, HH:mm";

TEST(DateText, TheMonthIsNamedAsTheLocaleDoes) {
    EXPECT_EQ(dateText(moment, pattern, "en_GB", "Europe/London"), "8 May 2026, 07:05");
    EXPECT_EQ(dateText(moment, pattern, "de_DE", "Europe/London"), "8 Mai 2026, 07:05");
    EXPECT_EQ(dateText(moment, pattern, "fr_FR", "Europe/London"), "8 mai 2026, 07:05");
}

TEST(DateText, TheHourIsThatOfTheTimeZone) {
    EXPECT_EQ(dateText(moment, pattern, "en_GB", "UTC"), "8 May 2026, 06:05");
    EXPECT_EQ(dateText(moment, pattern, "en_GB", "America/Los_Angeles"), "7 May 2026, 23:05");
}

TEST(DateText, AnAfternoonCountsTo24) {
    EXPECT_EQ(dateText(moment + std::chrono::hours(9), pattern, "en_US", "UTC"),
              "8 May 2026, 15:05");
}

TEST(DateText, WithoutALocaleAndATimeZoneTheYearIsThere) {
    EXPECT_EQ(dateText(moment, "yyyy"), dateText(moment, "yyyy", {}, "UTC"));
    EXPECT_FALSE(dateText(moment, "yyyy").empty());
}

}  // namespace
}  // namespace ornivo
