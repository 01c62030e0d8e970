#include "media/RawFraming.h"

#include <gtest/gtest.h>

#include "support/Pictures.h"

namespace ornivo::RawFraming {

/// For failure messages.
void PrintTo(const Framing& framing, std::ostream* out) {
    *out << framing.kept.width << "x" << framing.kept.height << " " << framing.orientation;
}

}  // namespace ornivo::RawFraming

namespace ornivo::testing {
namespace {

using RawFraming::Framing;
using RawFraming::framings;
using RawFraming::orderOfUse;
using Indices = std::vector<std::size_t>;

constexpr PixelSize sensor{6000, 4000};

TEST(RawFraming, TheSmallestThatIsLargeEnoughComesFirst) {
    const std::vector<PixelSize> sizes{{160, 120}, {6000, 4000}, {1620, 1080}, {640, 424}};
    EXPECT_EQ(orderOfUse(sizes, 640), (Indices{3, 2, 1}));
    EXPECT_EQ(orderOfUse(sizes, 641), (Indices{2, 1, 3}));
    EXPECT_EQ(orderOfUse(sizes, 1620), (Indices{2, 1, 3}));
    EXPECT_EQ(orderOfUse(sizes, 100), (Indices{0, 3, 2, 1}));
}

TEST(RawFraming, TheLargestOfAtLeast640PixelsServesWhereNoneIsLargeEnough) {
    const std::vector<PixelSize> sizes{{639, 426}, {640, 426}, {426, 1000}};
    EXPECT_EQ(orderOfUse(sizes, 1600), (Indices{2, 1}));
    EXPECT_EQ(orderOfUse(std::vector<PixelSize>{{639, 426}}, 1600), Indices{});
    EXPECT_EQ(orderOfUse({}, 640), Indices{});
}

TEST(RawFraming, ThePicturesLongerSideCounts) {
    EXPECT_EQ(orderOfUse(std::vector<PixelSize>{{1080, 1620}, {1000, 1400}}, 1600),
              (Indices{0, 1}));
}

TEST(RawFraming, APreviewOfTheSensorsShapeIsTurnedAsTheFileSays) {
    for (std::uint32_t orientation = 1; orientation <= 8; ++orientation) {
        const auto ways = framings({1620, 1080}, {orientation, sensor, sensor});
        EXPECT_EQ(ways.front(), (Framing{{1620, 1080}, orientation}));
    }
}

TEST(RawFraming, APreviewAcrossTheSensorsShapeIsTurnedAlready) {
    for (std::uint32_t orientation = 5; orientation <= 8; ++orientation) {
        const auto ways = framings({1080, 1620}, {orientation, sensor, sensor});
        EXPECT_EQ(ways.front(), (Framing{{1080, 1620}, 1}));
    }
}

TEST(RawFraming, APreviewAcrossAPictureThatIsNotTurnedHasAnotherShape) {
    for (std::uint32_t orientation = 1; orientation <= 4; ++orientation) {
        const auto ways = framings({1080, 1620}, {orientation, sensor, sensor});
        for (const Framing& way : ways) EXPECT_NE(way.kept, (PixelSize{1080, 1620})) << way.orientation;
    }
}

TEST(RawFraming, ASensorThatStandsUprightIsNoTurnedPreview) {
    const PixelSize upright{3024, 4032};
    EXPECT_EQ(framings({768, 1024}, {6, upright, upright}).front(), (Framing{{768, 1024}, 6}));
}

TEST(RawFraming, RoundingAndMarginsDoNotMakeAnotherShape) {
    EXPECT_EQ(framings({1616, 1080}, {1, sensor, {}}).front().kept, (PixelSize{1616, 1080}));
    EXPECT_EQ(framings({570, 375}, {1, {}, PixelSize{5600, 3728}}).front().kept,
              (PixelSize{570, 375}));
}

TEST(RawFraming, BarsAreLookedForWhereTheShapeDiffers) {
    EXPECT_EQ(framings({1600, 1200}, {1, sensor, sensor}),
              (std::vector<Framing>{{{1600, 1067}, 1}}));
    EXPECT_EQ(framings({1620, 1080}, {1, PixelSize{4000, 3000}, {}}),
              (std::vector<Framing>{{{1440, 1080}, 1}}));
}

TEST(RawFraming, APreviewWithBarsMayBeTurnedAlready) {
    EXPECT_EQ(framings({1600, 1200}, {8, sensor, sensor}),
              (std::vector<Framing>{{{1600, 1067}, 8}, {{800, 1200}, 1}}));
}

TEST(RawFraming, TheChosenAspectGoesBeforeTheSensors) {
    const PixelSize wide{6000, 3376};
    EXPECT_EQ(framings({1620, 1080}, {1, wide, sensor}),
              (std::vector<Framing>{{{1620, 912}, 1}, {{1620, 1080}, 1}}));
}

TEST(RawFraming, WithoutAShapeTheWholeIsTaken) {
    EXPECT_EQ(framings({1600, 1200}, {3, {}, {}}), (std::vector<Framing>{{{1600, 1200}, 3}}));
    EXPECT_EQ(framings({1600, 1200}, {6, {}, {}}), (std::vector<Framing>{{{1600, 1200}, 6}}));
    EXPECT_EQ(framings({1200, 1600}, {6, {}, {}}), (std::vector<Framing>{{{1200, 1600}, 1}}));
}

/// A picture with bars of a colour above and below, or at both sides.
Bitmap withBars(PixelSize whole, PixelSize kept, Colour bars) {
    const int left = (whole.width - kept.width) / 2;
    const int top = (whole.height - kept.height) / 2;
    return painted(whole.width, whole.height, [=](int x, int y) {
        const bool isBar =
            x < left || x >= whole.width - left || y < top || y >= whole.height - top;
        return isBar ? bars : Colour{200, 100, 50};
    });
}

TEST(RawFraming, BlackBarsAreTold) {
    const PixelSize whole{160, 120};
    EXPECT_TRUE(RawFraming::isBlackAround(withBars(whole, {160, 90}, {0, 0, 0}), {160, 90}));
    EXPECT_TRUE(RawFraming::isBlackAround(withBars(whole, {120, 120}, {12, 8, 16}), {120, 120}));
}

TEST(RawFraming, WhatIsNotBlackIsNoBar) {
    const PixelSize whole{160, 120};
    EXPECT_FALSE(RawFraming::isBlackAround(withBars(whole, {160, 90}, {60, 60, 60}), {160, 90}));
    EXPECT_FALSE(RawFraming::isBlackAround(withBars(whole, {160, 90}, {0, 0, 90}), {160, 90}));
    EXPECT_FALSE(RawFraming::isBlackAround(withBars(whole, {160, 110}, {0, 0, 0}), {160, 90}));
    // A bar on one side alone is a dark thing in the picture.
    const auto half = painted(160, 120, [](int, int y) {
        return y < 15 ? Colour{0, 0, 0} : Colour{200, 100, 50};
    });
    EXPECT_FALSE(RawFraming::isBlackAround(half, {160, 90}));
}

TEST(RawFraming, WhereThereIsNothingAroundThereAreNoBars) {
    EXPECT_FALSE(RawFraming::isBlackAround(filled(160, 120, {0, 0, 0}), {160, 120}));
}

}  // namespace
}  // namespace ornivo::testing
