#include "cli/ResumedRun.h"

#include <gtest/gtest.h>

#include "cli/UsageError.h"
#include "support/TempFolder.h"
#include "vocabulary/ConfidencePolicy.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;

class ResumedRunTest : public ::testing::Test {
protected:
    ResumedRunTest() {
        for (const char* const name : {"a.jpg", "b.jpg", "c.jpg"}) {
            record.sourcePaths.push_back(writeFile(folder / name, "x").string());
        }
        record.destination = "/elsewhere";
        record.mode = "sort";
        record.gate = 0.5375;
        record.burstInheritance = "off";
        record.copyMode = "keep";
        record.totalPhotos = 3;
        record.stoppedAtIndex = 1;
        record.sortedSoFar = 7;
        record.uncertainSoFar = 5;
    }

    ResumedRun resumed(const std::vector<BirdSpecies>& targets = {}) const {
        return resumedRun(record, "/out", targets);
    }

    /// Why the record is refused.
    template <typename Refusal>
    std::string refusal(const std::vector<BirdSpecies>& targets = {}) const {
        try {
            resumed(targets);
        } catch (const Refusal& error) {
            return error.what();
        }
        return "accepted";
    }

    TempFolder folder;
    PausedRun record;
};

TEST_F(ResumedRunTest, TheListIsTheRecordsOwnAndTheDestinationWhereItWasFound) {
    const RunScope scope = resumed().scope;
    EXPECT_EQ(scope.files,
              (std::vector<fs::path>{folder / "a.jpg", folder / "b.jpg", folder / "c.jpg"}));
    EXPECT_EQ(scope.destination, "/out");
    EXPECT_EQ(scope.mode, AppMode::sort);
    EXPECT_EQ(scope.startIndex(), 1U);
    EXPECT_EQ(scope.earlier, (RunScope::EarlierPart{.files = 1, .sorted = 7, .uncertain = 5}));
}

TEST_F(ResumedRunTest, EachSettingIsTheRecords) {
    SortOptions expected;
    expected.confidence = 38;
    EXPECT_EQ(resumed().options, expected);

    record.gate = 0.9;
    record.callLevel = "probable";
    record.copyMode = "delete";
    record.rename = true;
    record.dateSubfolders = true;
    record.burstInheritance = "confirmedAndCorrected";
    record.assumedLocation = "51.5,-0.12";
    expected = {.mode = CopyMode::trashOriginal,
                .rename = true,
                .dateSubfolders = true,
                .confidence = 24,
                .assumedLocation = PhotoLocation::make(51.5, -0.12),
                .burstInheritance = BurstInheritance::confirmedAndCorrected};
    EXPECT_EQ(resumed().options, expected);
}

TEST_F(ResumedRunTest, AnyGateComesBackAsThePositionNearestToIt) {
    for (int position = 0; position <= 100; ++position) {
        record.gate = ConfidencePolicy::threshold(position);
        EXPECT_EQ(resumed().options.confidence, position);
    }
    record.gate = 0.5375;
    record.callLevel = "bold";
    EXPECT_EQ(resumed().options.confidence, 38);
}

TEST_F(ResumedRunTest, AnyPlaceComesBackAsItWasWritten) {
    for (const auto& [latitude, longitude] :
         {std::pair{0.00001, -0.0000001}, {-90.0, 180.0}, {0.1 + 0.2, 1.0 / 3}}) {
        const auto place = PhotoLocation::make(latitude, longitude);
        record.assumedLocation = PausedRun::textOf(*place);
        EXPECT_EQ(resumed().options.assumedLocation, place);
    }
}

TEST_F(ResumedRunTest, ASearchNeedsItsSpeciesAgainAndASortNone) {
    EXPECT_EQ(refusal<UsageError>({{"Dodo", ""}}),
              "The paused run was no search: leave --species away.");
    record.mode = "find";
    EXPECT_EQ(refusal<UsageError>(),
              "The paused run was a search, and its record doesn't hold the species. Name each "
              "again with --species.");
    const RunScope scope = resumed({{"Dodo", ""}}).scope;
    EXPECT_EQ(scope.mode, AppMode::find);
    EXPECT_EQ(scope.targets, (std::vector<BirdSpecies>{{"Dodo", ""}}));
}

TEST_F(ResumedRunTest, ARecordThatMakesNoSenseIsRefusedWithTheReason) {
    const PausedRun good = record;
    const auto refusalWith = [&](const auto& change) {
        record = good;
        change(record);
        return refusal<std::runtime_error>();
    };
    const auto sentence = [](const std::string& reason) {
        return "The record of the paused run makes no sense: " + reason + ". Nothing was done.";
    };
    EXPECT_EQ(refusalWith([](auto& r) { r.stoppedAtIndex = 4; }),
              sentence("it stopped at file 4 of a list of 3"));
    EXPECT_EQ(refusalWith([](auto& r) { r.stoppedAtIndex = -1; }),
              sentence("it stopped at file -1 of a list of 3"));
    EXPECT_EQ(refusalWith([](auto& r) { r.mode = "seek"; }), sentence("mode is \"seek\""));
    EXPECT_EQ(refusalWith([](auto& r) { r.copyMode = "burn"; }), sentence("copyMode is \"burn\""));
    EXPECT_EQ(refusalWith([](auto& r) { r.burstInheritance = ""; }),
              sentence("burstInheritance is \"\""));
    for (const char* const place : {"", "1", "1,", ",1", "1,2,3", "91,0", "nan,0", "1;2"}) {
        EXPECT_EQ(refusalWith([&](auto& r) { r.assumedLocation = place; }),
                  sentence("assumedLocation is \"" + std::string(place) + "\""));
    }
}

TEST_F(ResumedRunTest, ARunOfWhichNothingIsLeftIsAllRight) {
    record.stoppedAtIndex = 3;
    EXPECT_EQ(resumed().scope.startIndex(), 3U);
}

TEST_F(ResumedRunTest, ADiskThatIsNotConnectedIsNoReasonToTakeEachFileForLost) {
    fs::remove(folder / "b.jpg");
    EXPECT_EQ(resumed().scope.files.size(), 3U) << "one that is gone stays in the list";
    fs::remove(folder / "c.jpg");
    EXPECT_EQ(refusal<std::runtime_error>(),
              "None of the files left is there, the first being " + (folder / "b.jpg").string() +
                  ". Is the disk on which they lie connected? Nothing was done.");
}

}  // namespace ornivo::cli
