#include "identification/RangeTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "identification/BirdClassifierLabels.h"
#include "identification/PlaceGazetteer.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

std::string region(const std::string& id, const std::string& latitudes,
                   const std::string& longitudes, const std::string& labels = R"(["A"])") {
    return R"({"id": ")" + id + R"(", "name": "N", "latitudes": )" + latitudes +
           R"(, "longitudes": )" + longitudes + R"(, "labels": )" + labels + "}";
}

std::string table(const std::string& regions) {
    return R"({"version": 1, "regions": [)" + regions + "]}";
}

std::string failureOf(const std::string& json) {
    try {
        RangeTable::fromJson(json);
    } catch (const RangeTable::LoadError& error) {
        return error.localizedDescription();
    }
    return "none";
}

const std::string invalidBounds = "range_regions.json is malformed. region 'x' has invalid bounds";

}  // namespace

TEST(RangeTable, AFileWithoutRegionsIsMalformed) {
    EXPECT_EQ(failureOf(table("")), "range_regions.json is malformed. no regions");
}

TEST(RangeTable, AFileThatDoesNotDecodeIsMalformedWithTheReasonOfTheDecoder) {
    EXPECT_EQ(failureOf(R"({"version": 1})"),
              "range_regions.json is malformed. 'regions' is missing");
    EXPECT_EQ(failureOf(R"({"regions": []})"),
              "range_regions.json is malformed. 'version' is missing");
    EXPECT_EQ(failureOf("{"), "range_regions.json is malformed. not JSON: byte 2");
    EXPECT_EQ(failureOf(table(R"({"id": "x"})")),
              "range_regions.json is malformed. 'regions[0].name' is missing");
}

TEST(RangeTable, BoundsAreTwoNumbersInTheirOrderOnTheEarth) {
    const std::string good = "[0, 1]";
    for (const auto* bad : {"[1]", "[1, 2, 3]", "[]", "[20, 10]", "[-91, 0]", "[0, 91]"}) {
        EXPECT_EQ(failureOf(table(region("x", bad, good))), invalidBounds) << bad;
    }
    for (const auto* bad : {"[1]", "[1, 2, 3]", "[20, 10]", "[-181, 0]", "[0, 181]"}) {
        EXPECT_EQ(failureOf(table(region("x", good, bad))), invalidBounds) << bad;
    }
    EXPECT_EQ(failureOf(table(region("x", "[-90, 90]", "[-180, 180]"))), "none");
}

TEST(RangeTable, ABoxMayBeALine) {
    EXPECT_EQ(failureOf(table(region("x", "[10, 10]", "[5, 5]"))), "none");
}

TEST(RangeTable, ARegionHasLabels) {
    EXPECT_EQ(failureOf(table(region("x", "[0, 1]", "[0, 1]", "[]"))),
              "range_regions.json is malformed. region 'x' has no labels");
}

TEST(RangeTable, OfTwoFailuresTheEarlierTestWins) {
    EXPECT_EQ(failureOf(table(region("x", "[1]", "[0, 1]", "[]"))), invalidBounds);
}

TEST(RangeTable, TwoRegionsWithOneIdFailOnTheSecond) {
    const std::string x = region("x", "[0, 1]", "[0, 1]");
    EXPECT_EQ(failureOf(table(x + "," + region("y", "[0, 1]", "[0, 1]") + "," + x)),
              "range_regions.json is malformed. duplicate region id 'x'");
}

TEST(RangeTable, AbsentCountriesAndSourceLoadAsEmptyAndLabelsCollapse) {
    const auto loaded =
        RangeTable::fromJson(table(region("x", "[0, 1]", "[0, 1]", R"(["A", "B", "A"])")));
    EXPECT_EQ(loaded.version(), 1);
    EXPECT_EQ(loaded.source(), "");
    ASSERT_EQ(loaded.regions().size(), 1u);
    EXPECT_TRUE(loaded.regions()[0].countries.empty());
    EXPECT_FALSE(loaded.regions()[0].refines);
    EXPECT_EQ(loaded.labels("x"), (RangeTable::Labels{"A", "B"}));
}

TEST(RangeTable, EveryMemberIsReadAndOthersAreIgnored) {
    const auto loaded = RangeTable::fromJson(R"({"version": 3, "source": "s", "more": 1,
        "regions": [{"id": "i", "name": "n", "countries": ["IN"], "latitudes": [-10, 30],
        "longitudes": [60, 100], "refines": "w", "labels": ["A"], "other": []}]})");
    EXPECT_EQ(loaded.version(), 3);
    EXPECT_EQ(loaded.source(), "s");
    const auto info = loaded.region("i");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->name, "n");
    EXPECT_EQ(info->countries, std::vector<std::string>{"IN"});
    EXPECT_EQ(info->refines, "w");
    EXPECT_EQ(info->representativePoint(), PhotoLocation::make(10, 80));
}

TEST(RangeTable, AnUnknownIdHasNoRegionAndNoLabels) {
    const auto loaded = RangeTable::fromJson(table(region("x", "[0, 1]", "[0, 1]")));
    EXPECT_FALSE(loaded.region("y"));
    EXPECT_TRUE(loaded.labels("y").empty());
}

TEST(RangeTable, LabelsThatTheClassifierDoesNotKnowAreReportedAndNoError) {
    const std::string known = BirdClassifierLabels::commonNames().begin()->first;
    const auto loaded = RangeTable::fromJson(
        table(region("x", "[0, 1]", "[0, 1]", R"(["Zz", "Aa", ")" + known + "\"]")));
    EXPECT_EQ(loaded.labelsUnknownToModel(), (std::vector<std::string>{"Aa", "Zz"}));
}

TEST(RangeTable, APriorRestrictedToARegionTestsThatBoxAlone) {
    const auto loaded =
        RangeTable::fromJson(table(region("x", "[0, 1]", "[0, 1]", R"(["A"])") + "," +
                                   region("y", "[0, 1]", "[0, 1]", R"(["B"])")));
    const SpeciesPrior::Candidates both{{"A", 0.5}, {"B", 0.5}};
    const IdentificationContext there(PhotoLocation::make(0.5, 0.5), std::nullopt);
    EXPECT_EQ(loaded.prior(0)->adjusted(both, there), both);
    EXPECT_EQ(loaded.prior(0, "y")->adjusted(both, there),
              (SpeciesPrior::Candidates{{"B", 1}, {"A", 0}}));
    EXPECT_EQ(loaded.prior(0, "nowhere")->adjusted(both, there), both);
}

TEST(RangeTable, TheWeightIsClamped) {
    const auto loaded = RangeTable::fromJson(table(region("x", "[0, 1]", "[0, 1]", R"(["A"])")));
    const SpeciesPrior::Candidates both{{"A", 0.5}, {"B", 0.5}};
    const IdentificationContext there(PhotoLocation::make(0.5, 0.5), std::nullopt);
    EXPECT_EQ(loaded.prior(-3)->adjusted(both, there),
              (SpeciesPrior::Candidates{{"A", 1}, {"B", 0}}));
    EXPECT_EQ(loaded.prior(7)->adjusted(both, there), both);
}

TEST(RangeTable, AFileThatCannotBeReadFailsWithTheReadingsOwnError) {
    const testing::TempFolder folder;
    try {
        RangeTable::fromFile(folder / "missing.json");
        FAIL();
    } catch (const RangeTable::LoadError&) {
        FAIL() << "not a matter of the contents";
    } catch (const Error& error) {
        EXPECT_EQ(error.domain(), Error::posixDomain);
    }
}

TEST(RangeTable, TheWordsForAMissingTable) {
    EXPECT_EQ(RangeTable::LoadError::notBundled().localizedDescription(),
              "range_regions.json was not found in the package bundle.");
}

TEST(RangeTable, TheShippedTableFitsTheClassifier) {
    const auto shipped = RangeTable::loadBundled();
    EXPECT_GE(shipped.regions().size(), 45u);
    EXPECT_TRUE(shipped.labelsUnknownToModel().empty());
    EXPECT_TRUE(shipped.region("indian-subcontinent"));

    std::set<std::string> placed;
    for (const auto& info : shipped.regions()) {
        const auto& labels = shipped.labels(info.id);
        placed.insert(labels.begin(), labels.end());
        EXPECT_TRUE(!info.refines || shipped.region(*info.refines)) << info.id;
    }
    for (const auto& [label, name] : BirdClassifierLabels::commonNames()) {
        EXPECT_TRUE(placed.contains(label)) << label << " lives nowhere";
    }
}

TEST(RangeTable, EveryShippedPlaceLiesInItsRegion) {
    const auto shipped = RangeTable::loadBundled();
    const auto gazetteer = PlaceGazetteer::bundled();
    ASSERT_TRUE(gazetteer);
    for (const auto& place : gazetteer->places()) {
        const auto info = shipped.region(place.regionID);
        ASSERT_TRUE(info) << place.name;
        EXPECT_TRUE(info->latitudes.contains(place.latitude) &&
                    info->longitudes.contains(place.longitude))
            << place.name;
    }
}

}  // namespace ornivo
