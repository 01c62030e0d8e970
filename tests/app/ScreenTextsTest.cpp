#include "app/presentation/ScreenTexts.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

TEST(TimeLabel, IsInSecondsBelowAMinuteAndInMinutesFromThereOn) {
    const std::pair<double, const char*> rows[] = {
        {0, "0.0s"},      {0.04, "0.0s"},    {9.96, "10.0s"},  {59.9, "59.9s"},     {60, "1m 0s"},
        {125.9, "2m 5s"}, {3599, "59m 59s"}, {3600, "60m 0s"}, {7265.2, "121m 5s"},
    };
    for (const auto& [seconds, text] : rows) EXPECT_EQ(timeLabel(seconds), text) << seconds;
}

TEST(Percentage, RoundsHalfAwayFromZeroAndIsNothingOfNothing) {
    struct Row {
        int part, whole, percent;
    };
    for (const auto& [part, whole, percent] :
         {Row{0, 0, 0}, Row{3, 0, 0}, Row{3, -1, 0}, Row{0, 7, 0}, Row{1, 3, 33}, Row{2, 3, 67},
          Row{1, 200, 1}, Row{29, 200, 15}, Row{199, 400, 50}, Row{7, 7, 100}}) {
        EXPECT_EQ(percentage(part, whole), percent) << part << " of " << whole;
    }
}

TEST(OnOneLine, IsWhatWouldBreakItABlank) {
    EXPECT_EQ(onOneLine("a\nb\r\nc\td"), "a b  c d");
    EXPECT_EQ(onOneLine(QString::fromUtf8("a\u2028b\u2029c\u0085d\u007fe")), "a b c d e");
    EXPECT_EQ(onOneLine(QString::fromUtf8("Möwe 鹤 — 100%1")),
              QString::fromUtf8("Möwe 鹤 — 100%1"));
}

TEST(ShownName, IsTheLastComponentWhateverItsBytes) {
    EXPECT_EQ(shownName("/home/ana/Birds 2026"), "Birds 2026");
    EXPECT_EQ(shownName("/home/ana/Birds/"), "Birds");
    EXPECT_EQ(shownName("/home/ana/Bir\nds"), "Bir ds");
    EXPECT_EQ(shownName("/photos/M\xFCnchen"), "M�nchen");
}

}  // namespace
}  // namespace ornivo::app
