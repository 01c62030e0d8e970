#include "identification/RangeListPrior.h"

#include <gtest/gtest.h>

#include "support/Candidates.h"

namespace ornivo {
namespace {

using testing::at;
using testing::expectCandidates;
using testing::place;
using testing::three;
using Region = RangeListPrior::Region;

const Region central{"Central", {40, 50}, {0, 20}, {"B", "C"}};

TEST(RangeListPrior, LowersWhatIsOutOfRangeAndRenormalises) {
    const RangeListPrior prior({central}, 0.15);
    expectCandidates(prior.adjusted(three(), at(45, 10)),
                     {{"B", 0.5217391304}, {"C", 0.3478260870}, {"A", 0.1304347826}});
}

TEST(RangeListPrior, UsesTheLocationAndNotTheDate) {
    const RangeListPrior prior({central}, 0.15);
    EXPECT_TRUE(prior.usesLocation());
    EXPECT_FALSE(prior.usesDate());
}

TEST(RangeListPrior, WithoutALocationTheListStaysAsItIs) {
    const RangeListPrior prior({central}, 0.15);
    EXPECT_EQ(prior.adjusted(three(), testing::in(5)), three());
    EXPECT_EQ(prior.adjusted(three(), std::optional<PhotoLocation>()), three());
}

TEST(RangeListPrior, TakesABareLocationToo) {
    const RangeListPrior prior({central}, 0.15);
    EXPECT_EQ(prior.adjusted(three(), std::optional(place(45, 10))),
              prior.adjusted(three(), at(45, 10)));
}

TEST(RangeListPrior, APlaceOutsideEveryRegionLeavesTheListAsItIs) {
    const RangeListPrior prior({central}, 0.15);
    EXPECT_EQ(prior.adjusted(three(), at(45, 21)), three());
    EXPECT_EQ(RangeListPrior({}, 0.15).adjusted(three(), at(45, 10)), three());
}

TEST(RangeListPrior, RegionsWithoutSpeciesLeaveTheListAsItIs) {
    const RangeListPrior prior({{"Sea", {40, 50}, {0, 20}, {}}}, 0.15);
    EXPECT_EQ(prior.adjusted(three(), at(45, 10)), three());
}

TEST(RangeListPrior, AnEmptyListStaysEmpty) {
    EXPECT_TRUE(RangeListPrior({central}, 0.15).adjusted({}, at(45, 10)).empty());
}

TEST(RangeListPrior, AWeightOfOneOrMoreSwitchesItOff) {
    const testing::Candidates unsorted{{"C", 0.2}, {"A", 0.5}};
    for (const double weight : {1.0, 1.5, 100.0}) {
        EXPECT_EQ(RangeListPrior({central}, weight).adjusted(unsorted, at(45, 10)), unsorted);
    }
}

TEST(RangeListPrior, AWeightBelowZeroIsZero) {
    expectCandidates(RangeListPrior({central}, -3).adjusted(three(), at(45, 10)),
                     {{"B", 0.6}, {"C", 0.4}, {"A", 0}});
}

TEST(RangeListPrior, AWeightOfZeroKeepsTheSpeciesInTheListWithoutAShare) {
    expectCandidates(RangeListPrior({central}, 0).adjusted(three(), at(45, 10)),
                     {{"B", 0.6}, {"C", 0.4}, {"A", 0}});
}

TEST(RangeListPrior, WithNothingLeftItAnswersZerosSortedByLabel) {
    const RangeListPrior prior({{"Elsewhere", {40, 50}, {0, 20}, {"Z"}}}, 0);
    const testing::Candidates input{{"B", 0.5}, {"C", 0.3}, {"A", 0.2}};
    expectCandidates(prior.adjusted(input, at(45, 10)), {{"A", 0}, {"B", 0}, {"C", 0}});
}

TEST(RangeListPrior, SortsEqualConfidencesByLabel) {
    const RangeListPrior prior({{"All", {40, 50}, {0, 20}, {"a", "B", "C", "é", "f"}}}, 0.15);
    const testing::Candidates input{{"f", 0.2}, {"é", 0.2}, {"a", 0.2}, {"C", 0.2}, {"B", 0.2}};
    expectCandidates(prior.adjusted(input, at(45, 10)),
                     {{"B", 0.2}, {"C", 0.2}, {"a", 0.2}, {"f", 0.2}, {"é", 0.2}});
}

TEST(RangeListPrior, ComparesLabelsByteForByte) {
    const RangeListPrior prior({{"Case", {40, 50}, {0, 20}, {"a", "B_", "C"}}}, 0);
    expectCandidates(prior.adjusted(three(), at(45, 10)), {{"C", 1}, {"A", 0}, {"B", 0}});
}

TEST(RangeListPrior, OverlappingRegionsActAsOneWithTheSpeciesOfBoth) {
    const RangeListPrior prior(
        {{"One", {40, 50}, {0, 20}, {"B"}}, {"Two", {44, 60}, {5, 30}, {"C"}}}, 0.15);
    expectCandidates(prior.adjusted(three(), at(45, 10)),
                     {{"B", 0.5217391304}, {"C", 0.3478260870}, {"A", 0.1304347826}});
}

TEST(RangeListPrior, NeverDropsACandidate) {
    EXPECT_EQ(RangeListPrior({central}, 0).adjusted(three(), at(45, 10)).size(), 3U);
}

TEST(RangeListPriorRegion, ItsEdgesBelongToIt) {
    for (const auto& [latitude, longitude] : {std::pair{40.0, 0.0},
                                              {40.0, 20.0},
                                              {50.0, 0.0},
                                              {50.0, 20.0},
                                              {45.0, 20.0},
                                              {50.0, 10.0}}) {
        EXPECT_TRUE(central.contains(place(latitude, longitude))) << latitude << ' ' << longitude;
    }
    for (const auto& [latitude, longitude] :
         {std::pair{39.999, 10.0}, {50.001, 10.0}, {45.0, -0.001}, {45.0, 20.001}}) {
        EXPECT_FALSE(central.contains(place(latitude, longitude))) << latitude << ' ' << longitude;
    }
}

TEST(RangeListPriorRegion, ThePoleAndTheAntimeridianAreOrdinaryValues) {
    const Region corner{"Corner", {80, 90}, {170, 180}, {"A"}};
    EXPECT_TRUE(corner.contains(place(90, 180)));
    EXPECT_FALSE(corner.contains(place(90, -180)));
}

}  // namespace
}  // namespace ornivo
