#include "identification/SeasonPrior.h"

#include <gtest/gtest.h>

#include "support/Candidates.h"

namespace ornivo {
namespace {

using testing::expectCandidates;
using testing::in;
using testing::three;

const SeasonPrior::LabelsByMonth months{{5, {"B", "C"}}, {6, {}}};

TEST(SeasonPrior, LowersWhatIsOutOfSeasonAndRenormalises) {
    const SeasonPrior prior(months, 0.15);
    expectCandidates(prior.adjusted(three(), in(5)),
                     {{"B", 0.5217391304}, {"C", 0.3478260870}, {"A", 0.1304347826}});
}

TEST(SeasonPrior, UsesTheDateAndNotTheLocation) {
    const SeasonPrior prior(months, 0.35);
    EXPECT_FALSE(prior.usesLocation());
    EXPECT_TRUE(prior.usesDate());
}

TEST(SeasonPrior, WithoutAMonthTheListStaysAsItIs) {
    const SeasonPrior prior(months, 0.35);
    EXPECT_EQ(prior.adjusted(three(), testing::at(45, 10)), three());
    EXPECT_EQ(prior.adjusted(three(), std::optional(testing::place(45, 10))), three());
}

TEST(SeasonPrior, AMonthWithoutAnEntryLeavesTheListAsItIs) {
    EXPECT_EQ(SeasonPrior(months, 0.35).adjusted(three(), in(7)), three());
    EXPECT_EQ(SeasonPrior({}, 0.35).adjusted(three(), in(5)), three());
}

TEST(SeasonPrior, AMonthWithAnEmptyEntryLeavesTheListAsItIs) {
    EXPECT_EQ(SeasonPrior(months, 0.35).adjusted(three(), in(6)), three());
}

TEST(SeasonPrior, AnEmptyListStaysEmpty) {
    EXPECT_TRUE(SeasonPrior(months, 0.35).adjusted({}, in(5)).empty());
}

TEST(SeasonPrior, AWeightOfOneOrMoreSwitchesItOff) {
    const testing::Candidates unsorted{{"C", 0.2}, {"A", 0.5}};
    for (const double weight : {1.0, 1.5}) {
        EXPECT_EQ(SeasonPrior(months, weight).adjusted(unsorted, in(5)), unsorted);
    }
}

TEST(SeasonPrior, AWeightOfZeroKeepsTheSpeciesInTheListWithoutAShare) {
    for (const double weight : {0.0, -1.0}) {
        expectCandidates(SeasonPrior(months, weight).adjusted(three(), in(5)),
                         {{"B", 0.6}, {"C", 0.4}, {"A", 0}});
    }
}

TEST(SeasonPrior, WithNothingLeftItAnswersTheListAsItCame) {
    const SeasonPrior prior({{5, {"Z"}}}, 0);
    const testing::Candidates unsorted{{"B", 0.2}, {"C", 0.5}, {"A", 0.3}};
    EXPECT_EQ(prior.adjusted(unsorted, in(5)), unsorted);
}

TEST(SeasonPrior, SortsEqualConfidencesByLabel) {
    const SeasonPrior prior({{5, {"A", "B", "C"}}}, 0.35);
    expectCandidates(prior.adjusted({{"C", 0.25}, {"A", 0.25}, {"B", 0.5}}, in(5)),
                     {{"B", 0.5}, {"A", 0.25}, {"C", 0.25}});
}

}  // namespace
}  // namespace ornivo
