#include "identification/CompositePrior.h"

#include <gtest/gtest.h>

#include "identification/NoSpeciesPrior.h"
#include "identification/RangeListPrior.h"
#include "identification/SeasonPrior.h"
#include "support/Candidates.h"

namespace ornivo {
namespace {

using testing::expectCandidates;
using testing::place;
using testing::three;

using Priors = std::vector<std::shared_ptr<const SpeciesPrior>>;

std::shared_ptr<const SpeciesPrior> range(double weight) {
    return std::make_shared<RangeListPrior>(
        std::vector<RangeListPrior::Region>{{"Box", {40, 50}, {0, 20}, {"B", "C"}}}, weight);
}

std::shared_ptr<const SpeciesPrior> season(double weight) {
    return std::make_shared<SeasonPrior>(SeasonPrior::LabelsByMonth{{5, {"C"}}}, weight);
}

const IdentificationContext mayInTheBox(place(45, 10), 5);

TEST(CompositePrior, WithoutPriorsTheListStaysAsItIs) {
    const testing::Candidates unsorted{{"C", 0.2}, {"A", 0.5}};
    EXPECT_EQ(CompositePrior({}).adjusted(unsorted, mayInTheBox), unsorted);
}

TEST(CompositePrior, ASpeciesOutOfRangeAndOutOfSeasonLosesByBothFactors) {
    const CompositePrior prior({range(0.15), season(0.35)});
    const double a = 0.5 * 0.15 * 0.35;
    const double b = 0.3 * 0.35;
    const double c = 0.2;
    const double sum = a + b + c;
    expectCandidates(prior.adjusted(three(), mayInTheBox),
                     {{"C", c / sum}, {"B", b / sum}, {"A", a / sum}});
}

TEST(CompositePrior, AppliesItsPriorsInOrder) {
    const auto onlyB = std::make_shared<RangeListPrior>(
        std::vector<RangeListPrior::Region>{{"Box", {40, 50}, {0, 20}, {"B"}}}, 0);
    const auto onlyA = std::make_shared<SeasonPrior>(SeasonPrior::LabelsByMonth{{5, {"A"}}}, 0);
    // Where both together leave nothing, the season gives back what it got, and the range zeros.
    expectCandidates(CompositePrior({onlyB, onlyA}).adjusted(three(), mayInTheBox),
                     {{"B", 1}, {"A", 0}, {"C", 0}});
    expectCandidates(CompositePrior({onlyA, onlyB}).adjusted(three(), mayInTheBox),
                     {{"A", 0}, {"B", 0}, {"C", 0}});
}

TEST(CompositePrior, UsesWhatAnyOfItsPriorsUses) {
    struct Row {
        Priors priors;
        bool usesLocation;
        bool usesDate;
    };
    const auto none = std::make_shared<NoSpeciesPrior>();
    const std::vector<Row> rows{
        {{}, false, false},
        {{none}, false, false},
        {{none, range(0.15)}, true, false},
        {{season(0.35)}, false, true},
        {{range(0.15), season(0.35)}, true, true},
    };
    for (const Row& row : rows) {
        const CompositePrior prior(row.priors);
        EXPECT_EQ(prior.usesLocation(), row.usesLocation);
        EXPECT_EQ(prior.usesDate(), row.usesDate);
    }
}

TEST(NoSpeciesPrior, LeavesEveryListAsItIs) {
    const NoSpeciesPrior prior;
    const testing::Candidates unsorted{{"C", 0.2}, {"A", 0.5}};
    EXPECT_EQ(prior.adjusted(unsorted, mayInTheBox), unsorted);
    EXPECT_EQ(prior.adjusted(unsorted, std::optional(place(45, 10))), unsorted);
    EXPECT_FALSE(prior.usesLocation());
    EXPECT_FALSE(prior.usesDate());
}

}  // namespace
}  // namespace ornivo
