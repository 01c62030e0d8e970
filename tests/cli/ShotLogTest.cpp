#include "cli/ShotLog.h"

#include <gtest/gtest.h>

#include "identification/BirdClassifierLabels.h"

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
std::vector<Shot> shotsOf(const std::vector<Event>& events, const RunScope& scope = {}) {
    ShotLog log(scope);
    std::vector<Shot> shots;
    for (const auto& event : events) {
        if (auto shot = log.take(event)) shots.push_back(std::move(*shot));
    }
    return shots;
}

const IdentifiedSpecies hoopoe = speciesOf("Upupa_epops", 0.934);
const std::string folder = displayName(hoopoe);
const std::string notice = "Low confidence — review _Uncertain/";

}  // namespace

TEST(ShotLog, ACalledShotAndAnUncertainOneAreToldApartByTheNotice) {
    const std::vector<Shot> expected{{"a.jpg", hoopoe, true, folder},
                                     {"b.jpg", hoopoe, false, "_Uncertain"}};
    EXPECT_EQ(shotsOf({turnTo("a.jpg"), Prediction{hoopoe, std::nullopt}, turnTo("b.jpg"),
                       Prediction{hoopoe, notice}, SortEngine::SortFinished{}}),
              expected);
}

TEST(ShotLog, AFollowerIsNoShotOfItsOwn) {
    const std::vector<Shot> expected{{"a.cr2", hoopoe, true, folder}};
    EXPECT_EQ(shotsOf({turnTo("a.cr2"), Prediction{hoopoe, std::nullopt}, turnTo("a.jpg"),
                       SortEngine::SortFinished{}}),
              expected);
}

TEST(ShotLog, AShotThatCouldNotBeReadOrFiledCarriesTheReason) {
    const std::vector<Shot> expected{{"a.jpg", std::nullopt, false, std::nullopt, "no picture"},
                                     {"b.jpg", hoopoe, true, std::nullopt, "no right"}};
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

TEST(ShotLog, ANameThatIsNoFolderNameIsToldAsTheFolderThatItGets) {
    const auto shots = shotsOf(
        {turnTo("a.jpg"), Prediction{speciesOf("no/label", 0.5), {}}, SortEngine::SortFinished{}});
    ASSERT_EQ(shots.size(), 1U);
    EXPECT_EQ(shots[0].folder, "No_Label");
}

TEST(ShotLog, InASearchOnlyAMatchHasAFolderNamedAsTheSpeciesWasChosen) {
    const IdentifiedSpecies wryneck = speciesOf("Jynx_torquilla", 0.9);
    const RunScope search{.source = {},
                          .destination = {},
                          .files = {},
                          .mode = AppMode::find,
                          .targets = {{"", "JYNX/torquilla"}, {"", "jynx-torquilla"}}};
    const std::vector<Shot> expected{{"a.jpg", hoopoe, true},
                                     {"b.jpg", wryneck, true, "jynx-torquilla"},
                                     {"c.jpg", wryneck, false},
                                     {"d.jpg", wryneck, true, std::nullopt, "no right"}};
    EXPECT_EQ(
        shotsOf({turnTo("a.jpg"), Prediction{hoopoe, std::nullopt}, turnTo("b.jpg"),
                 Prediction{wryneck, std::nullopt}, turnTo("c.jpg"), Prediction{wryneck, notice},
                 turnTo("d.jpg"), Prediction{wryneck, std::nullopt},
                 Prediction{std::nullopt, "no right"}, SortEngine::FindFinished{}},
                search),
        expected);
}

}  // namespace ornivo::cli
