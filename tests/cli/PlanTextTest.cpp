#include "cli/PlanText.h"

#include <gtest/gtest.h>

namespace ornivo::cli {

using Kind = PlanStep::Kind;
using Lines = std::vector<std::string>;

TEST(PlanText, APlanThatDoesNothingHasNoWords) {
    EXPECT_EQ(planText({}, "/in", "/out"), Lines{});
}

TEST(PlanText, StepsStandByTheirKindWithShortenedPaths) {
    const Plan plan{
        {Kind::copy, "/in/a/1.jpg", "/out/Hoopoe/1.jpg"},
        {Kind::trash, "/in/a/1.jpg", {}},
        {Kind::copy, "/in/2.jpg", "/out/_Uncertain/2.jpg"},
        {Kind::trash, "/in/2.jpg", {}},
        {Kind::write, {}, "/out/_Uncertain/review.csv"},
        {Kind::move, "/out/_Uncertain/3.jpg", "/out/Hoopoe/3.jpg"},
        {Kind::remove, "/out/_Paused/resume.json", {}},
    };
    EXPECT_EQ(planText(plan, "/in", "/out"), (Lines{
                                                 "Would copy 2 files into /out:",
                                                 "  a/1.jpg → Hoopoe/1.jpg",
                                                 "  2.jpg → _Uncertain/2.jpg",
                                                 "Would move 1 file within it:",
                                                 "  _Uncertain/3.jpg → Hoopoe/3.jpg",
                                                 "Would move 2 files to the Trash once copied:",
                                                 "  a/1.jpg",
                                                 "  2.jpg",
                                                 "Would write:",
                                                 "  _Uncertain/review.csv",
                                                 "Would remove:",
                                                 "  _Paused/resume.json",
                                             }));
}

TEST(PlanText, APathElsewhereIsToldWhole) {
    const Plan plan{{Kind::copy, "/beside/1.jpg", "/out/1.jpg"}};
    EXPECT_EQ(planText(plan, "/in", "/out"),
              (Lines{"Would copy 1 file into /out:", "  /beside/1.jpg → 1.jpg"}));
}

}  // namespace ornivo::cli
