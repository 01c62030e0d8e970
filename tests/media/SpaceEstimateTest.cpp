#include "media/SpaceEstimate.h"

#include <gtest/gtest.h>

namespace ornivo {
namespace {

using Verdict = SpaceEstimate::Verdict;

SpaceEstimate estimateOf(Verdict verdict) {
    return {.photographBytes = 12'000'000'000,
            .requiredBytes = verdict == Verdict::clones ? 0 : 12'000'000'000,
            .availableBytes = 10'800'000'000,
            .destinationVolumeName = "CARD",
            .verdict = verdict};
}

std::string adviceOn(Verdict verdict) {
    return estimateOf(verdict).advice("en_GB");
}

TEST(SpaceEstimate, TheAdviceOnClonesIsThatNothingIsNeeded) {
    EXPECT_EQ(adviceOn(Verdict::clones),
              "No extra space needed — CARD is the same disk as your photos, so the sorted copies "
              "share storage with the originals.");
}

TEST(SpaceEstimate, TheAdviceOnWhatFitsTellsBothSizes) {
    EXPECT_EQ(adviceOn(Verdict::fits), "About 12 GB needed. CARD has 10.8 GB free.");
}

TEST(SpaceEstimate, TheAdviceOnATightFitWarns) {
    EXPECT_EQ(adviceOn(Verdict::tight),
              "About 12 GB needed and only 10.8 GB free on CARD — close enough that anything else "
              "running could fill it.");
}

TEST(SpaceEstimate, TheAdviceOnWhatDoesNotFitTellsTheShortfallAndTheWayOut) {
    EXPECT_EQ(adviceOn(Verdict::doesNotFit),
              "Not enough room: about 12 GB needed, 10.8 GB free on CARD. Free about 1.2 GB, or "
              "sort to a folder on the same disk as your photos — copies there cost nothing.");
}

TEST(SpaceEstimate, AVolumeWithoutANameIsTheDestination) {
    const std::string clones =
        "No extra space needed — the destination is the same disk as your photos, so the sorted "
        "copies share storage with the originals.";
    const std::string doesNotFit =
        "Not enough room: about 12 GB needed, 10.8 GB free on the destination. Free about 1.2 GB, "
        "or sort to a folder on the same disk as your photos — copies there cost nothing.";
    for (const auto& [verdict, advice] :
         {std::pair(Verdict::clones, clones), std::pair(Verdict::doesNotFit, doesNotFit),
          std::pair(Verdict::fits,
                    std::string("About 12 GB needed. the destination has 10.8 GB free.")),
          std::pair(Verdict::tight,
                    std::string("About 12 GB needed and only 10.8 GB free on the destination — "
                                "close enough that anything else running could fill it."))}) {
        SpaceEstimate nameless = estimateOf(verdict);
        nameless.destinationVolumeName.reset();
        EXPECT_EQ(nameless.advice("en_GB"), advice);
    }
}

TEST(SpaceEstimate, TheShortfallIsWhatIsMissingAndNeverNegative) {
    EXPECT_EQ(estimateOf(Verdict::doesNotFit).shortfallBytes(), 1'200'000'000);
    EXPECT_EQ(estimateOf(Verdict::clones).shortfallBytes(), 0);
    EXPECT_EQ((SpaceEstimate{.requiredBytes = 1, .availableBytes = 1}).shortfallBytes(), 0);
}

TEST(SpaceEstimate, OnlyTheVerdictClonesClones) {
    for (const Verdict verdict : allCases<Verdict>()) {
        EXPECT_EQ(estimateOf(verdict).willClone(), verdict == Verdict::clones);
    }
}

TEST(SpaceEstimate, TheVerdictsHaveTheirRawValuesInOrder) {
    EXPECT_EQ(allCases<Verdict>(),
              (std::array{Verdict::clones, Verdict::fits, Verdict::tight, Verdict::doesNotFit}));
    EXPECT_EQ(rawValue(Verdict::clones), "clones");
    EXPECT_EQ(rawValue(Verdict::fits), "fits");
    EXPECT_EQ(rawValue(Verdict::tight), "tight");
    EXPECT_EQ(rawValue(Verdict::doesNotFit), "doesNotFit");
}

TEST(SpaceEstimate, EqualityComparesEveryField) {
    const SpaceEstimate estimate = estimateOf(Verdict::fits);
    EXPECT_EQ(estimate, estimateOf(Verdict::fits));
    EXPECT_NE(estimate, estimateOf(Verdict::tight));
    for (const auto field : {&SpaceEstimate::photographBytes, &SpaceEstimate::requiredBytes,
                             &SpaceEstimate::availableBytes}) {
        SpaceEstimate other = estimate;
        other.*field += 1;
        EXPECT_NE(other, estimate);
    }
    SpaceEstimate other = estimate;
    other.destinationVolumeName.reset();
    EXPECT_NE(other, estimate);
}

}  // namespace
}  // namespace ornivo
