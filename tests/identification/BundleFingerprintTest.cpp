#include "identification/BundleFingerprint.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "identification/BirdClassifierLabels.h"
#include "vocabulary/JsonFields.h"

namespace ornivo::BundleFingerprint {
namespace {

Summary example() {
    return {.labelCount = 2,
            .firstLabel = "A",
            .lastLabel = "B",
            .rangeRegionCount = 3,
            .subcontinentLabelCount = 1,
            .seasonMonthCount = 12,
            .placeCount = 5,
            .photographerCount = 0,
            .modelPresent = true};
}

/// The example with one field changed, for each field in order.
std::vector<Summary> changedOnce() {
    std::vector<Summary> changed(9, example());
    changed[0].labelCount = 9;
    changed[1].firstLabel = "C";
    changed[2].lastLabel = "C";
    changed[3].rangeRegionCount = 9;
    changed[4].subcontinentLabelCount = 9;
    changed[5].seasonMonthCount = 9;
    changed[6].placeCount = 9;
    changed[7].photographerCount = 9;
    changed[8].modelPresent = false;
    return changed;
}

}  // namespace

TEST(BundleFingerprint, EachFieldThatDiffersHasItsLine) {
    const std::vector<std::string> lines{
        "model labels: expected 2, found 9",
        "first label: expected A, found C",
        "last label: expected B, found C",
        "range regions: expected 3, found 9",
        "subcontinent labels: expected 1, found 9",
        "season months: expected 12, found 9",
        "places: expected 5, found 9",
        "photographers: expected 0, found 9",
        "model present: expected true, found false",
    };
    const auto changed = changedOnce();
    for (std::size_t i = 0; i < changed.size(); ++i) {
        const Verdict verdict = compare(example(), changed[i]);
        EXPECT_FALSE(verdict.isMatch());
        EXPECT_EQ(verdict.differences, std::vector<std::string>{lines[i]});
    }
}

TEST(BundleFingerprint, SeveralDifferencesStandInTheOrderOfTheFields) {
    const Verdict verdict = compare(example(), Summary());
    ASSERT_EQ(verdict.differences.size(), 8u);
    EXPECT_EQ(verdict.differences.front(), "model labels: expected 2, found 0");
    EXPECT_EQ(verdict.differences[1], "first label: expected A, found ");
    EXPECT_EQ(verdict.differences.back(), "model present: expected true, found false");
}

TEST(BundleFingerprint, TheDataMatchTheSummaryJustTaken) {
    EXPECT_TRUE(verify(summary()).isMatch());
    EXPECT_EQ(verify(summary()), Verdict());
}

TEST(BundleFingerprint, SummariesThatDifferInAnyFieldHaveDifferentDigestsOf16Characters) {
    std::set<std::string> digests{example().digest()};
    for (const Summary& changed : changedOnce()) digests.insert(changed.digest());
    EXPECT_EQ(digests.size(), 10u);
    for (const auto& digest : digests) EXPECT_EQ(digest.size(), 16u);
    EXPECT_EQ(example().digest(), example().digest());
}

TEST(BundleFingerprint, TheDigestIsTheBeginningOfTheHashOfTheFieldsInTheirOrder) {
    // printf '2|A|B|3|1|12|5|0|true' | sha256sum
    EXPECT_EQ(example().digest(), "37b3a0fa197f3831");
}

TEST(BundleFingerprint, ASummarySurvivesJson) {
    EXPECT_EQ(Summary::fromJson(example().toJson()), example());
    EXPECT_THROW(Summary::fromJson("{}"), DecodingError);
}

TEST(BundleFingerprint, TheShippedDataAreWhole) {
    const Summary shipped = summary();
    EXPECT_EQ(shipped.labelCount, BirdClassifierLabels::speciesCount());
    EXPECT_GE(shipped.rangeRegionCount, 45);
    EXPECT_GT(shipped.subcontinentLabelCount, 0);
    EXPECT_EQ(shipped.seasonMonthCount, 12);
    EXPECT_GE(shipped.placeCount, 2500);
    EXPECT_TRUE(shipped.modelPresent);
}

TEST(BundleFingerprint, EveryResourceIsHashedAndAModelPackageIsPresent) {
    const auto hashes = deep();
    ASSERT_EQ(hashes.size(), 6u);
    for (const auto* name : {"bird_common_names.json", "range_regions.json", "season_months.json",
                             "places.json", "credits.json"}) {
        EXPECT_EQ(hashes.at(name).size(), 64u) << name;
    }
    EXPECT_EQ(hashes.at("model"), "PRESENT (weights not directly readable)");
}

}  // namespace ornivo::BundleFingerprint
