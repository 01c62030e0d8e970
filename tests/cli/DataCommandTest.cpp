#include "cli/DataCommand.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/OwnBundle.h"
#include "cli/Program.h"
#include "cli/SortScene.h"
#include "identification/BundleFingerprint.h"

namespace ornivo::cli {

using namespace ornivo::testing;
using BundleFingerprint::Summary;
using ::testing::ElementsAre;

namespace {

Summary summaryOf(const OwnBundle& bundle) {
    return Summary::fromJson(Program::run({"data", "--summary"}, {}, bundle.program()).out);
}

}  // namespace

TEST(DataCommand, WithoutAQuestionItTellsTheDigest) {
    const Ending ending = Program::run({"data"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.out, BundleFingerprint::summary().digest() + "\n");
}

TEST(DataCommand, ASummaryTakenBeforeIsVerified) {
    const TempFolder folder;
    const auto expected =
        writeFile(folder / "expected.json", Program::run({"data", "--summary"}).out).string();
    const Ending ending = Program::run({"data", "--verify", expected});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.out, "✓ The data are as expected.\n");
}

TEST(DataCommand, WhatDiffersIsToldLineByLine) {
    const TempFolder folder;
    Summary expected = BundleFingerprint::summary();
    expected.placeCount += 1;
    expected.modelPresent = false;
    const auto file = writeFile(folder / "expected.json", expected.toJson()).string();
    const Ending ending = Program::run({"data", "--verify", file});
    EXPECT_EQ(ending.code, 1);
    EXPECT_THAT(linesOf(ending.out),
                ElementsAre("places: expected " + std::to_string(expected.placeCount) + ", found " +
                                std::to_string(expected.placeCount - 1),
                            "model present: expected false, found true"));
}

TEST(DataCommand, AFileThatIsNoSummaryIsWrongUsage) {
    const TempFolder folder;
    const auto file = writeFile(folder / "x.json", "{}").string();
    const Ending ending = Program::run({"data", "--verify", file});
    EXPECT_EQ(ending.code, 2);
    EXPECT_EQ(ending.err, "No summary could be read from " + file + ": 'labelCount' is missing.\n");
}

TEST(DataCommand, OneQuestionAtATime) {
    const Ending ending = Program::run({"data", "--summary", "--deep"});
    EXPECT_EQ(ending.code, 2);
    EXPECT_EQ(ending.err,
              "--verify, --summary and --deep are three questions: ask one at a time.\n");
}

TEST(DataCommand, AnEmptyNameTableCountsNothingAndHasNoLabels) {
    const OwnBundle bundle;
    writeFile(bundle.file("bird_common_names.json"), "{}");
    const Summary summary = summaryOf(bundle);
    EXPECT_EQ(summary.labelCount, 0);
    EXPECT_EQ(summary.firstLabel, "");
    EXPECT_EQ(summary.lastLabel, "");
}

TEST(DataCommand, PlacesThatAreNoListCountNothingAndUnsoundOnesCountAllTheSame) {
    const OwnBundle bundle;
    writeFile(bundle.file("places.json"), R"({"places": {"a": 1}})");
    EXPECT_EQ(summaryOf(bundle).placeCount, 0);
    writeFile(bundle.file("places.json"), R"({"places": [1, {}, {"name": "x"}]})");
    EXPECT_EQ(summaryOf(bundle).placeCount, 3);
}

TEST(DataCommand, ARangeTableThatFailsItsChecksCountsNothing) {
    const OwnBundle bundle;
    writeFile(bundle.file("range_regions.json"), R"({"version": 1, "regions": [
        {"id": "indian-subcontinent", "name": "", "latitudes": [0, 1], "longitudes": [0, 1],
         "labels": ["A"]},
        {"id": "x", "name": "", "latitudes": [9, 1], "longitudes": [0, 1], "labels": ["A"]}]})");
    const Summary summary = summaryOf(bundle);
    EXPECT_EQ(summary.rangeRegionCount, 0);
    EXPECT_EQ(summary.subcontinentLabelCount, 0);
}

TEST(DataCommand, MissingFilesCountNothingAndHaveNoDigest) {
    const OwnBundle bundle;
    for (const auto* name : {"places.json", "season_months.json", "credits.json"}) {
        std::filesystem::remove(bundle.file(name));
    }
    std::filesystem::remove(bundle.file("BirdClassifier.mlpackage"));
    const Summary summary = summaryOf(bundle);
    EXPECT_EQ(summary.placeCount + summary.seasonMonthCount + summary.photographerCount, 0);
    EXPECT_FALSE(summary.modelPresent);

    const auto lines = linesOf(Program::run({"data", "--deep"}, {}, bundle.program()).out);
    EXPECT_THAT(lines,
                ::testing::IsSupersetOf({"places.json  MISSING", "model  MISSING",
                                         "season_months.json  MISSING", "credits.json  MISSING"}));
    EXPECT_EQ(lines.size(), 6U);
}

}  // namespace ornivo::cli
