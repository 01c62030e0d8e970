#include "media/BurstResolver.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

namespace ornivo {
namespace {

using Frame = BurstResolver::Frame;
using Kind = BurstResolver::Kind;
using Promotion = BurstResolver::Promotion;
using Candidates = std::vector<IdentifiedSpecies::Candidate>;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr double gate = 0.8;
const BurstResolver resolver(2, 4, 3, gate);

Frame dated(std::int64_t sequence, std::int64_t second, Candidates candidates) {
    return {sequence, second, std::move(candidates)};
}

Frame undated(std::int64_t sequence, Candidates candidates) {
    return {sequence, std::nullopt, std::move(candidates)};
}

const Candidates weakRobin{{"Robin", 0.6}, {"Wren", 0.2}};

TEST(BurstResolver, KindsAreStoredUnderTheseTexts) {
    EXPECT_EQ(rawValue(Kind::confirmed), "confirmed");
    EXPECT_EQ(rawValue(Kind::corrected), "corrected");
    EXPECT_EQ(allCases<Kind>(), (std::array{Kind::confirmed, Kind::corrected}));
}

TEST(BurstResolver, LimitsAreRaisedToOneAndTheGateIsLeftAlone) {
    const BurstResolver raised(0, -3, 0, -1);
    EXPECT_EQ(raised.window, 1);
    EXPECT_EQ(raised.secondsWindow, 1);
    EXPECT_EQ(raised.searchDepth, 1);
    EXPECT_EQ(raised.gate, -1);
    EXPECT_EQ(resolver.window, 2);
    EXPECT_EQ(resolver.secondsWindow, 4);
    EXPECT_EQ(resolver.searchDepth, 3);
}

TEST(BurstResolver, NoFrameOrOneGivesNoPromotions) {
    EXPECT_THAT(resolver.resolve({}), IsEmpty());
    EXPECT_THAT(resolver.resolve({dated(1, 10, weakRobin)}), IsEmpty());
}

TEST(BurstResolver, AFramesOwnBestGuessIsConfirmed) {
    EXPECT_THAT(resolver.resolve({dated(7, 10, {{"Robin", 0.95}}), dated(8, 12, weakRobin)}),
                ElementsAre(Promotion{Kind::confirmed, 8, "Robin", "Robin", 0.6, 7, 0}));
}

TEST(BurstResolver, ALowerGuessIsCorrected) {
    EXPECT_THAT(resolver.resolve({dated(7, 10, {{"Robin", 0.95}}),
                                  dated(8, 12, {{"Wren", 0.5}, {"Robin", 0.3}})}),
                ElementsAre(Promotion{Kind::corrected, 8, "Wren", "Robin", 0.3, 7, 1}));
}

TEST(BurstResolver, ANeighbourExactlyAtTheLimitCountsAndOneBeyondDoesNot) {
    EXPECT_THAT(resolver.resolve({dated(1, 10, {{"Robin", 0.9}}), dated(2, 14, weakRobin)}),
                SizeIs(1));
    EXPECT_THAT(resolver.resolve({dated(1, 10, {{"Robin", 0.9}}), dated(2, 15, weakRobin)}),
                IsEmpty());
    EXPECT_THAT(resolver.resolve({undated(1, {{"Robin", 0.9}}), undated(3, weakRobin)}), SizeIs(1));
    EXPECT_THAT(resolver.resolve({undated(1, {{"Robin", 0.9}}), undated(4, weakRobin)}), IsEmpty());
}

TEST(BurstResolver, ASpeciesThatIsNotInTheFramesOwnListIsNotTaken) {
    EXPECT_THAT(resolver.resolve({dated(1, 10, {{"Heron", 0.9}}), dated(2, 11, weakRobin)}),
                IsEmpty());
}

TEST(BurstResolver, ASpeciesAtTheFourthPlaceIsNotFoundAtDepthThree) {
    const auto frames = [](Candidates own) {
        return std::vector{dated(1, 10, {{"Robin", 0.9}}), dated(2, 11, std::move(own))};
    };
    EXPECT_THAT(
        resolver.resolve(frames({{"Wren", 0.4}, {"Heron", 0.2}, {"Crow", 0.1}, {"Robin", 0.05}})),
        IsEmpty());
    EXPECT_THAT(
        resolver.resolve(frames({{"Wren", 0.4}, {"Heron", 0.2}, {"Robin", 0.1}, {"Crow", 0.05}})),
        ElementsAre(Promotion{Kind::corrected, 2, "Wren", "Robin", 0.1, 1, 2}));
}

TEST(BurstResolver, AtEqualVotesTheMoreConfidentSpeciesWins) {
    const auto promotions = resolver.resolve(
        {dated(1, 10, {{"Robin", 0.90}}), dated(2, 11, weakRobin), dated(3, 12, {{"Wren", 0.95}})});
    EXPECT_THAT(promotions, ElementsAre(Promotion{Kind::corrected, 2, "Robin", "Wren", 0.2, 3, 1}));
}

TEST(BurstResolver, AtEqualVotesAndConfidenceTheNameThatSortsFirstWins) {
    for (const bool robinFirst : {true, false}) {
        const auto promotions = resolver.resolve(
            {dated(1, 10, {{robinFirst ? "Robin" : "Wren", 0.90}}), dated(2, 11, weakRobin),
             dated(3, 12, {{robinFirst ? "Wren" : "Robin", 0.90}})});
        ASSERT_THAT(promotions, SizeIs(1));
        EXPECT_EQ(promotions[0].to, "Robin");
    }
}

TEST(BurstResolver, VotesCountMoreThanConfidenceAndTheMostConfidentCorroborates) {
    EXPECT_THAT(resolver.resolve({dated(1, 10, {{"Robin", 0.85}}), dated(2, 10, {{"Robin", 0.90}}),
                                  dated(3, 11, {{"Wren", 0.3}, {"Robin", 0.2}}),
                                  dated(4, 12, {{"Wren", 0.99}})}),
                ElementsAre(Promotion{Kind::corrected, 3, "Wren", "Robin", 0.2, 2, 1}));
}

TEST(BurstResolver, AtEqualConfidenceTheNearerFrameBeforeCorroborates) {
    const Candidates robin{{"Robin", 0.9}};
    const auto before = resolver.resolve(
        {dated(1, 10, robin), dated(2, 11, robin), dated(3, 12, weakRobin), dated(4, 12, robin)});
    ASSERT_THAT(before, SizeIs(1));
    EXPECT_EQ(before[0].corroboratedBy, 2);

    const auto after =
        resolver.resolve({dated(3, 12, weakRobin), dated(4, 13, robin), dated(5, 14, robin)});
    ASSERT_THAT(after, SizeIs(1));
    EXPECT_EQ(after[0].corroboratedBy, 4);
}

TEST(BurstResolver, TheRunnerUpIsNotTried) {
    EXPECT_THAT(resolver.resolve({dated(1, 10, {{"Heron", 0.95}}), dated(2, 11, weakRobin),
                                  dated(3, 12, {{"Robin", 0.90}})}),
                IsEmpty());
}

TEST(BurstResolver, AFrameExactlyAtTheGateIsNotPromotedAndVotes) {
    EXPECT_THAT(resolver.resolve({dated(1, 10, {{"Robin", 0.8}, {"Wren", 0.1}}),
                                  dated(2, 11, {{"Wren", 0.7}, {"Robin", 0.2}})}),
                ElementsAre(Promotion{Kind::corrected, 2, "Wren", "Robin", 0.2, 1, 1}));
    EXPECT_THAT(resolver.resolve(
                    {dated(1, 10, {{"Robin", 0.8}, {"Wren", 0.1}}), dated(2, 11, {{"Wren", 0.9}})}),
                IsEmpty());
}

TEST(BurstResolver, AWeakFrameBetweenDoesNotBreakTheBurst) {
    const auto promotions = resolver.resolve(
        {dated(1, 10, {{"Robin", 0.9}}), dated(2, 11, {{"Crow", 0.4}}), dated(3, 12, weakRobin)});
    ASSERT_THAT(promotions, SizeIs(1));
    EXPECT_EQ(promotions[0].sequence, 3);
}

TEST(BurstResolver, FramesOfOneSecondAreAllNeighbours) {
    const auto promotions = resolver.resolve(
        {dated(1, 10, weakRobin), dated(2, 10, weakRobin), dated(30, 10, {{"Robin", 0.9}}),
         dated(400, 10, weakRobin), dated(5000, 10, weakRobin)});
    ASSERT_THAT(promotions, SizeIs(4));
    for (const auto& promotion : promotions) EXPECT_EQ(promotion.corroboratedBy, 30);
}

TEST(BurstResolver, OneFrameWithoutATimePutsAllOnTheirNumbers) {
    const std::vector frames{dated(1, 10, {{"Robin", 0.9}}), dated(4, 11, weakRobin)};
    EXPECT_THAT(resolver.resolve(frames), SizeIs(1));
    auto withUndated = frames;
    withUndated.push_back(undated(100, {{"Crow", 0.9}}));
    EXPECT_THAT(resolver.resolve(withUndated), IsEmpty());
}

TEST(BurstResolver, AFrameWithoutCandidatesNeitherReceivesNorGives) {
    EXPECT_THAT(resolver.resolve({dated(1, 10, {}), dated(2, 11, weakRobin)}), IsEmpty());
    EXPECT_THAT(resolver.resolve({dated(1, 10, {}), dated(2, 11, {{"Robin", 0.9}})}), IsEmpty());
}

TEST(BurstResolver, APromotedFrameIsNoEvidenceForTheNext) {
    const auto promotions = resolver.resolve(
        {dated(1, 10, {{"Robin", 0.9}}), dated(2, 14, weakRobin), dated(3, 18, weakRobin)});
    ASSERT_THAT(promotions, SizeIs(1));
    EXPECT_EQ(promotions[0].sequence, 2);
}

TEST(BurstResolver, TheOrderOfTheFramesGivenDoesNotCount) {
    std::vector frames{dated(1, 10, {{"Robin", 0.9}}), dated(2, 11, weakRobin),
                       dated(3, 12, {{"Wren", 0.5}, {"Robin", 0.4}}),
                       dated(4, 13, {{"Robin", 0.85}}), dated(5, 14, weakRobin)};
    const auto expected = resolver.resolve(frames);
    ASSERT_THAT(expected, SizeIs(3));
    EXPECT_EQ(expected[0].sequence, 2);
    EXPECT_EQ(expected[1].sequence, 3);
    EXPECT_EQ(expected[2].sequence, 5);

    const auto bySequence = [](const Frame& a, const Frame& b) { return a.sequence < b.sequence; };
    while (std::ranges::next_permutation(frames, bySequence).found) {
        EXPECT_EQ(resolver.resolve(frames), expected);
    }
}

TEST(BurstResolver, FramesOfOneTimeStandInTheOrderOfTheirNumbers) {
    const auto promotions = resolver.resolve(
        {dated(9, 10, weakRobin), dated(3, 10, {{"Robin", 0.9}}), dated(5, 10, weakRobin)});
    ASSERT_THAT(promotions, SizeIs(2));
    EXPECT_EQ(promotions[0].sequence, 5);
    EXPECT_EQ(promotions[1].sequence, 9);
}

TEST(BurstResolver, LabelsAreComparedExactly) {
    EXPECT_THAT(resolver.resolve({dated(1, 10, {{"robin", 0.9}}), dated(2, 11, weakRobin)}),
                IsEmpty());
}

TEST(BurstResolver, NumbersAtTheEndsOfTheirRangeAreFarApart) {
    using Limits = std::numeric_limits<std::int64_t>;
    EXPECT_THAT(resolver.resolve(
                    {undated(Limits::min(), {{"Robin", 0.9}}), undated(Limits::max(), weakRobin)}),
                IsEmpty());
}

}  // namespace
}  // namespace ornivo
