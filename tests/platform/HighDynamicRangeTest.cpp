#include "platform/HighDynamicRange.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "support/Pictures.h"

namespace ornivo::testing {
namespace {

/// The one pixel made from values between 0 and 1.
Colour shown(LightCurve curve, double red, double green, double blue) {
    const auto value = [](double share) {
        return static_cast<std::uint16_t>(std::lround(share * 65535));
    };
    const std::array values{value(red), value(green), value(blue)};
    return at(toneMapped({1, 1}, values, curve), 0, 0);
}

Colour grey(LightCurve curve, double value) {
    return shown(curve, value, value, value);
}

std::uint8_t level(LightCurve curve, double value) {
    return grey(curve, value).green;
}

// The values that the standard gives for 0, 1, 100, 203, 1,000 and 10,000 candelas.
TEST(HighDynamicRange, LightOfThePerceptualQuantiserUpToThreeFifthsOfPaperWhiteIsKept) {
    EXPECT_EQ(level(LightCurve::pq, 0), 0);
    EXPECT_NEAR(level(LightCurve::pq, 0.1499), 15, 1);
    EXPECT_NEAR(level(LightCurve::pq, 0.5081), 186, 1);
}

TEST(HighDynamicRange, BrighterLightIsPressedTogetherBelowWhite) {
    EXPECT_NEAR(level(LightCurve::pq, 0.5807), 231, 1);
    EXPECT_NEAR(level(LightCurve::pq, 0.7518), 251, 1);
    EXPECT_NEAR(level(LightCurve::pq, 1), 255, 1);
}

TEST(HighDynamicRange, ThePaperWhiteOfHybridLogGammaIsThreeQuartersOfItsRange) {
    EXPECT_EQ(level(LightCurve::hlg, 0), 0);
    EXPECT_NEAR(level(LightCurve::hlg, 0.75), 231, 1);
    EXPECT_NEAR(level(LightCurve::hlg, 1), 251, 1);
}

TEST(HighDynamicRange, BrighterIsNeverDarker) {
    for (const LightCurve curve : {LightCurve::pq, LightCurve::hlg}) {
        for (int i = 1; i <= 1000; ++i) {
            EXPECT_GE(level(curve, i / 1000.0), level(curve, (i - 1) / 1000.0)) << i;
        }
    }
}

TEST(HighDynamicRange, GreyStaysGrey) {
    for (const double value : {0.1, 0.4, 0.6, 0.9}) {
        const Colour colour = grey(LightCurve::pq, value);
        EXPECT_TRUE(isNear(colour, {colour.green, colour.green, colour.green}, 1)) << colour;
    }
}

// 100 candelas of pure red in BT.709, in the primaries of BT.2020.
TEST(HighDynamicRange, AColourThatBothCanShowIsTheSame) {
    EXPECT_TRUE(isNear(shown(LightCurve::pq, 0.4621, 0.2713, 0.1767), {186, 0, 0}, 6))
        << shown(LightCurve::pq, 0.4621, 0.2713, 0.1767);
}

TEST(HighDynamicRange, AColourBeyondTheScreenLosesWhatLiesOutside) {
    const Colour green = shown(LightCurve::pq, 0, 0.5, 0);
    EXPECT_EQ(green.red, 0);
    EXPECT_EQ(green.blue, 0);
    EXPECT_GT(green.green, 150);
}

TEST(HighDynamicRange, PixelsKeepTheirPlaces) {
    const std::array<std::uint16_t, 12> values{0, 0, 0, 38000, 38000, 38000,
                                               0, 0, 0, 38000, 38000, 38000};
    const Bitmap bitmap = toneMapped({2, 2}, values, LightCurve::pq);
    ASSERT_EQ(bitmap.width(), 2);
    ASSERT_EQ(bitmap.height(), 2);
    EXPECT_EQ(at(bitmap, 0, 1), (Colour{0, 0, 0}));
    EXPECT_GT(at(bitmap, 1, 0).green, 200);
}

}  // namespace
}  // namespace ornivo::testing
