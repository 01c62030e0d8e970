#include "cli/ShotLog.h"

#include <gtest/gtest.h>

namespace ornivo::cli {

namespace {

using Event = SortEngine::Event;
using Prediction = SortEngine::Prediction;

ProgressUpdate turnTo(const std::string& fileName) {
    ProgressUpdate update;
    update.fileName = fileName;
    return update;
}

IdentifiedSpecies speciesOf(const std::string& label, double confidence) {
    return {{label, confidence}, {{label, confidence}}};
}

/// The shots that a run's events make.
std::vector<Shot> shotsOf(const std::vector<Event>& events) {
    ShotLog log;
    std::vector<Shot> shots;
    for (const auto& event : events) {
        if (auto shot = log.take(event)) shots.push_back(std::move(*shot));
    }
    return shots;
}

const IdentifiedSpecies hoopoe = speciesOf("Upupa_epops", 0.934);
const std::string notice = "Low confidence — review _Uncertain/";

}  // namespace

TEST(ShotLog, ACalledShotAndAnUncertainOneAreToldApartByTheNotice) {
    const std::vector<Shot> expected{{"a.jpg", hoopoe, true, std::nullopt},
                                     {"b.jpg", hoopoe, false, std::nullopt}};
    EXPECT_EQ(shotsOf({turnTo("a.jpg"), Prediction{hoopoe, std::nullopt}, turnTo("b.jpg"),
                       Prediction{hoopoe, notice}, SortEngine::SortFinished{}}),
              expected);
}

TEST(ShotLog, AFollowerIsNoShotOfItsOwn) {
    const std::vector<Shot> expected{{"a.cr2", hoopoe, true, std::nullopt}};
    EXPECT_EQ(shotsOf({turnTo("a.cr2"), Prediction{hoopoe, std::nullopt}, turnTo("a.jpg"),
                       SortEngine::SortFinished{}}),
              expected);
}

TEST(ShotLog, AShotThatCouldNotBeReadOrFiledCarriesTheReason) {
    const std::vector<Shot> expected{{"a.jpg", std::nullopt, false, "no picture"},
                                     {"b.jpg", hoopoe, true, "no right"}};
    EXPECT_EQ(shotsOf({turnTo("a.jpg"), Prediction{std::nullopt, "no picture"}, turnTo("b.jpg"),
                       Prediction{hoopoe, std::nullopt}, Prediction{std::nullopt, "no right"},
                       SortEngine::SortFinished{}}),
              expected);
}

TEST(ShotLog, AShotThatFoundNoRoomIsNotToldAsFiled) {
    EXPECT_EQ(shotsOf({turnTo("a.jpg"), Prediction{hoopoe, std::nullopt}, SortEngine::DiskFull{0},
                       SortEngine::SortFinished{}}),
              std::vector<Shot>{});
}

}  // namespace ornivo::cli
