#include "identification/SeasonTable.h"

#include <gtest/gtest.h>

#include <string>

#include "identification/BirdClassifierLabels.h"

namespace ornivo {
namespace {

/// A table with months 1 to `last`, and further members of `months`.
std::string table(int last, const std::string& more = "", const std::string& head = "") {
    std::string months;
    for (int month = 1; month <= last; ++month) {
        if (month > 1) months += ", ";
        months += "\"" + std::to_string(month) + "\": [\"A\"]";
    }
    return "{" + head + "\"months\": {" + months + more + "}}";
}

const std::string oneRegion = R"({"version": 1, "regions": [{"id": "x", "name": "X",
    "latitudes": [0, 1], "longitudes": [0, 1], "labels": ["A"]}]})";

}  // namespace

TEST(SeasonTable, AThirteenthMonthDoesNotReplaceAMissingOne) {
    EXPECT_FALSE(SeasonTable::fromJson(table(11, R"(, "13": ["A"])")));
    EXPECT_FALSE(SeasonTable::fromJson(table(11, R"(, "0": ["A"])")));
    const auto whole = SeasonTable::fromJson(table(12, R"(, "13": ["A"])"));
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->labelsByMonth().size(), 12u);
}

TEST(SeasonTable, AMonthMayHaveALeadingZeroOrPlus) {
    EXPECT_TRUE(SeasonTable::fromJson(table(11, R"(, "012": ["A"])")));
    EXPECT_TRUE(SeasonTable::fromJson(table(11, R"(, "+12": ["A"])")));
    const auto both = SeasonTable::fromJson(table(12, R"(, "01": ["B"])"));
    ASSERT_TRUE(both);
    EXPECT_EQ(both->labelsByMonth().size(), 12u);
}

TEST(SeasonTable, KeysThatAreNoMonthArePassedOver) {
    for (const auto* key : {"", "x", "-3", "+-3", "1x", " 1", "12.0", "99999999999999999999"}) {
        const std::string more = std::string(", \"") + key + "\": [\"A\"]";
        EXPECT_TRUE(SeasonTable::fromJson(table(12, more))) << key;
        EXPECT_FALSE(SeasonTable::fromJson(table(11, more))) << key;
    }
}

TEST(SeasonTable, AnEmptyMonthStaysAndThePriorLeavesItsListsUnchanged) {
    const auto loaded = SeasonTable::fromJson(table(11, R"(, "12": [])"));
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(loaded->labels(12).empty());
    const SpeciesPrior::Candidates candidates{{"B", 0.6}, {"A", 0.4}};
    const auto prior = loaded->prior(0);
    EXPECT_EQ(prior->adjusted(candidates, IdentificationContext(std::nullopt, 12)), candidates);
    EXPECT_EQ(prior->adjusted(candidates, IdentificationContext(std::nullopt, 11)),
              (SpeciesPrior::Candidates{{"A", 1}, {"B", 0}}));
}

TEST(SeasonTable, VersionAndSourceHaveTheirDefaults) {
    for (const auto* head : {"", R"("version": "2", "source": 5, )", R"("version": null, )"}) {
        const auto loaded = SeasonTable::fromJson(table(12, "", head));
        ASSERT_TRUE(loaded) << head;
        EXPECT_EQ(loaded->version(), 1) << head;
        EXPECT_EQ(loaded->source(), "") << head;
    }
    const auto loaded = SeasonTable::fromJson(table(12, "", R"("version": 4, "source": "s", )"));
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->version(), 4);
    EXPECT_EQ(loaded->source(), "s");
}

TEST(SeasonTable, AnythingButListsOfTextsRefusesTheWhole) {
    for (const auto* value : {"5", "\"A\"", "{}", "[1]", "[\"A\", null]"}) {
        EXPECT_FALSE(SeasonTable::fromJson(table(12, std::string(", \"x\": ") + value))) << value;
    }
    for (const auto* text : {"", "[]", "{}", R"({"months": []})", R"({"months": {)"}) {
        EXPECT_FALSE(SeasonTable::fromJson(text)) << text;
    }
}

TEST(SeasonTable, NumbersThatAreNoMonthHaveNoLabels) {
    const auto loaded = SeasonTable::fromJson(table(12));
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(loaded->labels(0).empty());
    EXPECT_TRUE(loaded->labels(13).empty());
    EXPECT_EQ(loaded->labels(7), SeasonTable::Labels{"A"});
}

TEST(SeasonTable, TheCombinedPriorUsesWhatTablesThereAre) {
    const auto ranges = RangeTable::fromJson(oneRegion);
    const auto seasons = SeasonTable::fromJson(table(12));

    const auto neither = SeasonTable::combinedPrior(std::nullopt, std::nullopt, std::nullopt);
    EXPECT_FALSE(neither->usesLocation());
    EXPECT_FALSE(neither->usesDate());
    const auto seasonAlone = SeasonTable::combinedPrior(std::nullopt, seasons, std::nullopt);
    EXPECT_FALSE(seasonAlone->usesLocation());
    EXPECT_TRUE(seasonAlone->usesDate());
    const auto rangeAlone = SeasonTable::combinedPrior(ranges, std::nullopt, std::nullopt);
    EXPECT_TRUE(rangeAlone->usesLocation());
    EXPECT_FALSE(rangeAlone->usesDate());
    const auto both = SeasonTable::combinedPrior(ranges, seasons, std::nullopt);
    EXPECT_TRUE(both->usesLocation());
    EXPECT_TRUE(both->usesDate());
}

TEST(SeasonTable, TheCombinedPriorWeighsRangeByFifteenAndSeasonByThirtyFiveHundredths) {
    const auto prior = SeasonTable::combinedPrior(RangeTable::fromJson(oneRegion),
                                                  SeasonTable::fromJson(table(12)), std::nullopt);
    const auto adjusted = prior->adjusted({{"B", 0.5}, {"A", 0.5}},
                                          IdentificationContext(PhotoLocation::make(0.5, 0.5), 7));
    ASSERT_EQ(adjusted.size(), 2u);
    EXPECT_EQ(adjusted[0].label, "A");
    EXPECT_NEAR(adjusted[1].confidence / adjusted[0].confidence, 0.15 * 0.35, 1e-12);
}

TEST(SeasonTable, ABirdFarOutOfRangeAndSeasonOfWhichThePicturesLeaveNoDoubtStillComesFirst) {
    const auto prior = SeasonTable::combinedPrior(RangeTable::fromJson(oneRegion),
                                                  SeasonTable::fromJson(table(12)), std::nullopt);
    const auto adjusted = prior->adjusted({{"B", 0.99}, {"A", 0.01}},
                                          IdentificationContext(PhotoLocation::make(0.5, 0.5), 7));
    ASSERT_EQ(adjusted.size(), 2u);
    EXPECT_EQ(adjusted[0].label, "B");
    EXPECT_NEAR(adjusted[0].confidence, 0.99 * 0.15 * 0.35 / (0.99 * 0.15 * 0.35 + 0.01), 1e-12);
}

TEST(SeasonTable, TheShippedTableHasAllMonthsAndOnlyLabelsOfTheClassifier) {
    const auto shipped = SeasonTable::bundled();
    ASSERT_TRUE(shipped);
    for (int month = 1; month <= 12; ++month) {
        EXPECT_FALSE(shipped->labels(month).empty());
        for (const auto& label : shipped->labels(month)) {
            EXPECT_TRUE(BirdClassifierLabels::commonNames().contains(label)) << label;
        }
    }
}

}  // namespace ornivo
