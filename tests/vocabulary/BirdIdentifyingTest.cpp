#include "vocabulary/BirdIdentifying.h"

#include <gtest/gtest.h>

namespace ornivo {
namespace {

/// Remembers what it was asked.
class RecordingIdentifier : public BirdIdentifying {
public:
    using BirdIdentifying::identify;

    ConfidencePolicy policy() const override { return {}; }

    IdentifiedSpecies identify(const Bitmap&, std::uint32_t orientation,
                               const std::optional<PhotoLocation>& location) override {
        lastOrientation = orientation;
        lastLocation = location;
        return {{"A", 1}, {{"A", 1}}};
    }

    std::uint32_t lastOrientation = 0;
    std::optional<PhotoLocation> lastLocation;
};

const Bitmap dot(1, 1, {0, 0, 0});

}  // namespace

TEST(BirdIdentifying, AnIdentifierMakesNothingOfPlaceAndDateUnlessItSaysSo) {
    const RecordingIdentifier identifier;
    EXPECT_FALSE(identifier.usesLocation());
    EXPECT_FALSE(identifier.usesDate());
}

TEST(BirdIdentifying, WithoutAnOperationOfItsOwnTheContextIsReducedToThePlace) {
    RecordingIdentifier identifier;
    const auto place = PhotoLocation::make(56, 10);
    identifier.identify(dot, 6, IdentificationContext(place, 5));
    EXPECT_EQ(identifier.lastOrientation, 6u);
    EXPECT_EQ(identifier.lastLocation, place);
}

TEST(BirdIdentifying, WithoutAPlaceNoneIsPassedOn) {
    RecordingIdentifier identifier;
    identifier.lastLocation = PhotoLocation::make(1, 1);
    identifier.identify(dot, 3);
    EXPECT_EQ(identifier.lastOrientation, 3u);
    EXPECT_EQ(identifier.lastLocation, std::nullopt);
}

TEST(BirdIdentifying, WithoutAnOrientationTheImageCountsAsUpright) {
    RecordingIdentifier identifier;
    identifier.identify(dot);
    EXPECT_EQ(identifier.lastOrientation, 1u);
}

}  // namespace ornivo
