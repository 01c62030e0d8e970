#include "vocabulary/PhotoLocation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

using nlohmann::json;

json gps(json latitude, json latitudeRef, json longitude, json longitudeRef) {
    return {{"Latitude", latitude},
            {"LatitudeRef", latitudeRef},
            {"Longitude", longitude},
            {"LongitudeRef", longitudeRef}};
}

}  // namespace

TEST(PhotoLocation, TheEndsOfTheEarthAreWithinBounds) {
    EXPECT_TRUE(PhotoLocation::make(90, 180));
    EXPECT_TRUE(PhotoLocation::make(-90, -180));
}

TEST(PhotoLocation, NumbersOutOfBoundsOrNotFiniteGiveNone) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(PhotoLocation::make(90.0001, 0));
    EXPECT_FALSE(PhotoLocation::make(-90.0001, 0));
    EXPECT_FALSE(PhotoLocation::make(0, 180.0001));
    EXPECT_FALSE(PhotoLocation::make(0, -180.0001));
    EXPECT_FALSE(PhotoLocation::make(nan, 0));
    EXPECT_FALSE(PhotoLocation::make(0, nan));
    EXPECT_FALSE(PhotoLocation::make(infinity, 0));
    EXPECT_FALSE(PhotoLocation::make(0, -infinity));
}

TEST(PhotoLocation, SouthAndWestNegateInEitherCase) {
    EXPECT_EQ(PhotoLocation::fromGPSDictionary(gps(33.5, "S", 70.25, "W")),
              PhotoLocation::make(-33.5, -70.25));
    EXPECT_EQ(PhotoLocation::fromGPSDictionary(gps(33.5, "s", 70.25, "w")),
              PhotoLocation::make(-33.5, -70.25));
}

TEST(PhotoLocation, EveryOtherReferenceLeavesTheNumberAsItStands) {
    for (const json& reference : {json("N"), json("South"), json(" S"), json(""), json(7)}) {
        EXPECT_EQ(PhotoLocation::fromGPSDictionary(gps(33.5, reference, 70.25, "E")),
                  PhotoLocation::make(33.5, 70.25))
            << reference;
    }
}

TEST(PhotoLocation, MissingReferencesReadAsNorthAndEast) {
    EXPECT_EQ(PhotoLocation::fromGPSDictionary({{"Latitude", 56}, {"Longitude", 10}}),
              PhotoLocation::make(56, 10));
}

TEST(PhotoLocation, BothNumbersMustBeThereAndBeNumbers) {
    EXPECT_FALSE(PhotoLocation::fromGPSDictionary({{"Latitude", 56}}));
    EXPECT_FALSE(PhotoLocation::fromGPSDictionary({{"Longitude", 10}}));
    EXPECT_FALSE(PhotoLocation::fromGPSDictionary(gps("56", "N", 10, "E")));
    EXPECT_FALSE(PhotoLocation::fromGPSDictionary(gps(56, "N", nullptr, "E")));
    EXPECT_FALSE(PhotoLocation::fromGPSDictionary(json::object()));
}

TEST(PhotoLocation, ANumberOutOfBoundsGivesNone) {
    EXPECT_FALSE(PhotoLocation::fromGPSDictionary(gps(91, "N", 10, "E")));
}

TEST(PhotoLocation, PropertiesWithoutAGroupOfPositionsGiveNone) {
    EXPECT_FALSE(PhotoLocation::fromProperties(json::object()));
    EXPECT_FALSE(PhotoLocation::fromProperties({{"{GPS}", "none"}}));
    EXPECT_FALSE(PhotoLocation::fromProperties({{"{GPS}", json::array({1, 2})}}));
    EXPECT_EQ(PhotoLocation::fromProperties({{"{GPS}", gps(1, "N", 2, "E")}}),
              PhotoLocation::make(1, 2));
}

TEST(PhotoLocation, AFileThatIsNoImageGivesNone) {
    const testing::TempFolder folder;
    EXPECT_FALSE(PhotoLocation::fromEXIF(folder / "missing.jpg"));
    EXPECT_FALSE(PhotoLocation::fromEXIF(testing::writeFile(folder / "text.jpg", "no image")));
}

TEST(PhotoLocation, APhotographsPositionIsReadFromItsHeaders) {
    const auto samples = testing::sampleMedia();
    if (samples.empty()) GTEST_SKIP() << "the sample media are not here";
    const auto location = PhotoLocation::fromEXIF(samples / "metadata/DSCN0010.jpg");
    ASSERT_TRUE(location);
    EXPECT_NEAR(location->latitude(), 43.467448, 1e-5);
    EXPECT_NEAR(location->longitude(), 11.885127, 1e-5);
}

}  // namespace ornivo
