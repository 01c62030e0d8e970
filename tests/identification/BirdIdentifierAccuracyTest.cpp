// Compares the program's answers for real photographs with those that the network gives where it
// is made, and with the truth.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "identification/BirdClassifierLabels.h"
#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "identification/SeasonTable.h"
#include "media/ImageDecoder.h"
#include "platform/BitmapTransforms.h"
#include "support/SamplePhotographs.h"
#include "support/TempCaches.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

using testing::Corner;
using testing::SamplePhotograph;

constexpr const char* samplesMissing = "the sample photographs are not here";

const IdentificationContext jutlandInMay(PhotoLocation::make(56, 10), 5);

/// A landscape without a bird.
Bitmap ground(const std::string& name) {
    const auto file = testing::sampleMedia() / "formats" / name;
    return ImageDecoder::decodeCGImage(file, 2 * testing::sceneSide).value().image;
}

bool holdsCentre(Corner corner, const SubjectBox& box) {
    const auto column = static_cast<int>(box.centreX * testing::sceneSide) - corner.left;
    const auto row = static_cast<int>(box.centreY * testing::sceneSide) - corner.top;
    return std::min(column, row) >= 0 && std::max(column, row) < testing::smallSide;
}

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
    EXPECT_GE(right, 80);
    EXPECT_GE(calledRight, called - 1);
}

TEST(BirdIdentifierAccuracy, FindsAndTellsBirdsThatFillAQuarterOfTheSide) {
    if (testing::sampleMedia().empty()) GTEST_SKIP() << samplesMissing;
    const testing::TempCaches caches;
    BirdIdentifier identifier(ConfidencePolicy(), SeasonTable::bundledCombinedPrior(),
                              std::nullopt);
    const std::array grounds{ground("denali.webp"), ground("sunrise.webp")};
    constexpr std::array<Corner, 3> corners{{{60, 400}, {240, 240}, {420, 120}}};
    int whole = 0;
    int right = 0;
    int found = 0;
    std::size_t number = 0;
    testing::eachSamplePhotograph([&](const SamplePhotograph& photograph) {
        const auto answer =
            identifier.identify(photograph.picture, photograph.orientation, jutlandInMay);
        if (answer.topLabel() != photograph.species) return;
        const Corner corner = corners.at(number % corners.size());
        const Bitmap scene = testing::laidSmall(upright(photograph.picture, photograph.orientation),
                                                grounds.at(number % grounds.size()), corner);
        const auto small = identifier.identify(scene, 1, jutlandInMay);
        ++number;
        ++whole;
        right += small.topLabel() == photograph.species;
        found += holdsCentre(corner, small.birdBox.value());
    });
    RecordProperty("whole", whole);
    RecordProperty("right", right);
    RecordProperty("found", found);
    EXPECT_GE(right, 0.8 * whole);
    EXPECT_GE(found, 0.9 * whole);
}

}  // namespace ornivo
