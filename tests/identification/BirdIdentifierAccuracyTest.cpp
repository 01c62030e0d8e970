// Compares the program's answers for real photographs with those of the network's makers, and with
// the truth.

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "identification/BirdClassifierLabels.h"
#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "identification/SeasonTable.h"
#include "support/SamplePhotographs.h"
#include "support/TempCaches.h"

namespace ornivo {
namespace {

using testing::SamplePhotograph;

constexpr const char* samplesMissing = "the sample photographs are not here";

}  // namespace

TEST(BirdIdentifierAccuracy, AgreesWithTheReferenceAnswersForTheSamplePhotographs) {
    const testing::TempCaches caches;
    BirdIdentifier identifier(ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(), std::nullopt);
    int agreeing = 0;
    int right = 0;
    int referenceRight = 0;
    double difference = 0;
    const auto count = testing::eachSamplePhotograph([&](const SamplePhotograph& photograph) {
        const auto answer = identifier.identify(photograph.picture, photograph.orientation);
        agreeing += answer.topLabel() == photograph.referenceLabel;
        right += answer.topLabel() == photograph.species;
        referenceRight += photograph.referenceLabel == photograph.species;
        difference += std::abs(answer.confidence() - photograph.referenceConfidence);
    });
    if (count == 0) GTEST_SKIP() << samplesMissing;
    const auto photographs = static_cast<double>(count);
    RecordProperty("agreeing", agreeing);
    RecordProperty("right", right);
    RecordProperty("meanDifference", std::to_string(difference / photographs));
    EXPECT_GE(agreeing, 0.97 * photographs);
    EXPECT_GE(right, referenceRight - 1);
    EXPECT_LE(difference / photographs, 0.03);
}

TEST(BirdIdentifierAccuracy, PlaceAndMonthMakeMoreAnswersRight) {
    const testing::TempCaches caches;
    BirdIdentifier identifier(ConfidencePolicy(), SeasonTable::bundledCombinedPrior(),
                              std::nullopt);
    const IdentificationContext jutlandInMay(PhotoLocation::make(56, 10), 5);
    int known = 0;
    int rightWithout = 0;
    int right = 0;
    int called = 0;
    int calledRight = 0;
    const auto count = testing::eachSamplePhotograph([&](const SamplePhotograph& photograph) {
        if (!BirdClassifierLabels::commonNames().contains(photograph.species)) return;
        ++known;
        const auto without = identifier.identify(photograph.picture, photograph.orientation);
        rightWithout += without.topLabel() == photograph.species;
        const auto answer =
            identifier.identify(photograph.picture, photograph.orientation, jutlandInMay);
        const bool isRight = answer.topLabel() == photograph.species;
        right += isRight;
        if (answer.confidence() < ConfidencePolicy().speciesThreshold) return;
        ++called;
        calledRight += isRight;
        if (!isRight) {
            RecordProperty(photograph.name, photograph.species + " called " + answer.topLabel());
        }
    });
    if (count == 0) GTEST_SKIP() << samplesMissing;
    RecordProperty("known", known);
    RecordProperty("rightWithout", rightWithout);
    RecordProperty("right", right);
    RecordProperty("called", called);
    RecordProperty("calledRight", calledRight);
    EXPECT_GE(right, 67);
    EXPECT_GE(calledRight, 0.96 * called);
}

}  // namespace ornivo
