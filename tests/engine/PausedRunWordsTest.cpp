#include "engine/PausedRunWords.h"

#include <gtest/gtest.h>

#include <vector>

namespace ornivo {
namespace {

TEST(PausedRunWords, TheExplanationDependsOnTheReason) {
    PausedRun run;
    run.reason = PausedRun::Reason::userCancelled;
    EXPECT_EQ(stopExplanation(run),
              "You stopped this run partway through. Nothing was moved — these photos are still "
              "where you left them.");
    run.reason = PausedRun::Reason::diskFull;
    run.destination = "/x/My Disk/";
    EXPECT_EQ(stopExplanation(run),
              "My Disk ran out of space partway through. Free some room and resume. Nothing was "
              "moved — these photos are still where you left them.");
}

TEST(PausedRunWords, CallsAreDescribedByTheLevelOrElseByTheGate) {
    struct Row {
        std::optional<std::string> level;
        double gate;
        std::string description;
    };
    const std::vector<Row> rows{{"confirmed", 0.3, "Confirmed"},
                                {"probable", 0.3, "Most likely"},
                                {"possible", 0.9, "Probable"},
                                {std::nullopt, 0.6, "Confirmed"},
                                {"certain", 0.45, "Most likely"},
                                {"certain", 0.545, "Custom · files at 55%"},
                                {std::nullopt, 0.95, "Custom · files at 95%"}};
    PausedRun run;
    for (const Row& row : rows) {
        run.callLevel = row.level;
        run.gate = row.gate;
        EXPECT_EQ(callDescription(run), row.description) << row.gate;
    }
}

}  // namespace
}  // namespace ornivo
