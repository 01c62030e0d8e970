#include "platform/BitmapTransforms.h"

#include <gtest/gtest.h>

#include <array>

#include "support/Pictures.h"

namespace ornivo::testing {
namespace {

constexpr Colour red{255, 0, 0};
constexpr Colour green{0, 255, 0};
constexpr Colour blue{0, 0, 255};
constexpr Colour white{255, 255, 255};

/// The colours in the middle of the quarters, in reading order.
std::array<Colour, 4> quartersOf(const Bitmap& bitmap) {
    const int left = bitmap.width() / 4;
    const int right = bitmap.width() * 3 / 4;
    const int top = bitmap.height() / 4;
    const int bottom = bitmap.height() * 3 / 4;
    return {at(bitmap, left, top), at(bitmap, right, top), at(bitmap, left, bottom),
            at(bitmap, right, bottom)};
}

TEST(BitmapTransforms, TheReducedSizeKeepsTheProportions) {
    EXPECT_EQ(reducedSize({6000, 4000}, 640), (PixelSize{640, 427}));
    EXPECT_EQ(reducedSize({4000, 6000}, 640), (PixelSize{427, 640}));
    EXPECT_EQ(reducedSize({1280, 1280}, 640), (PixelSize{640, 640}));
}

TEST(BitmapTransforms, TheReducedSizeRoundsHalfAwayFromZero) {
    EXPECT_EQ(reducedSize({1280, 3}, 640), (PixelSize{640, 2}));
    EXPECT_EQ(reducedSize({1280, 5}, 640), (PixelSize{640, 3}));
}

TEST(BitmapTransforms, TheReducedSizeNeverLosesAnEdge) {
    EXPECT_EQ(reducedSize({10000, 3}, 640), (PixelSize{640, 1}));
    EXPECT_EQ(reducedSize({3, 10000}, 640), (PixelSize{1, 640}));
    EXPECT_EQ(reducedSize({60000, 10}, 640), (PixelSize{640, 1}));
    EXPECT_EQ(reducedSize({500, 400}, 0), (PixelSize{1, 1}));
}

TEST(BitmapTransforms, TheReducedSizeIsNeverLarger) {
    EXPECT_EQ(reducedSize({600, 400}, 640), (PixelSize{600, 400}));
    EXPECT_EQ(reducedSize({640, 640}, 640), (PixelSize{640, 640}));
    EXPECT_EQ(reducedSize({1, 1}, 640), (PixelSize{1, 1}));
}

TEST(BitmapTransforms, ABitmapWithinTheLimitComesBackAsTheVerySame) {
    const Bitmap bitmap = quarters(600, 400);
    EXPECT_TRUE(downsampled(bitmap, 640).sharesPixelsWith(bitmap));
    EXPECT_TRUE(downsampled(bitmap, 600).sharesPixelsWith(bitmap));
    EXPECT_FALSE(downsampled(bitmap, 599).sharesPixelsWith(bitmap));
}

TEST(BitmapTransforms, ADownsampledBitmapShowsTheSamePicture) {
    const Bitmap reduced = downsampled(quarters(1600, 1200), 100);
    EXPECT_EQ(reduced.width(), 100);
    EXPECT_EQ(reduced.height(), 75);
    EXPECT_EQ(quartersOf(reduced), (std::array{red, green, blue, white}));
}

TEST(BitmapTransforms, ScalingBlendsWhatFallsTogether) {
    const auto chequered = [](int x, int y) {
        return (x + y) % 2 == 0 ? Colour{255, 255, 255} : Colour{0, 0, 0};
    };
    const Bitmap reduced = scaled(painted(400, 400, chequered), 100, 100);
    EXPECT_TRUE(isNear(at(reduced, 50, 50), {128, 128, 128}, 2)) << at(reduced, 50, 50);
}

TEST(BitmapTransforms, ScalingGivesTheWantedSidesWhateverTheProportions) {
    const Bitmap bitmap = quarters(300, 200);
    const std::array colours{red, green, blue, white};
    for (const PixelSize size : {PixelSize{224, 224}, PixelSize{10, 190}, PixelSize{700, 500}}) {
        const Bitmap result = scaled(bitmap, size.width, size.height);
        EXPECT_EQ(result.width(), size.width);
        EXPECT_EQ(result.height(), size.height);
        for (std::size_t i = 0; i < colours.size(); ++i) {
            EXPECT_TRUE(isNear(quartersOf(result)[i], colours[i], 1)) << quartersOf(result)[i];
        }
    }
}

TEST(BitmapTransforms, ScalingToTheSameSizeKeepsThePixels) {
    const Bitmap bitmap = quarters(30, 20);
    EXPECT_TRUE(scaled(bitmap, 30, 20).sharesPixelsWith(bitmap));
}

TEST(BitmapTransforms, TheCentreSquareComesFromTheMiddle) {
    const auto columns = [](int x, int) { return Colour{static_cast<std::uint8_t>(x), 0, 0}; };
    const Bitmap wide = centreSquare(painted(9, 4, columns));
    EXPECT_EQ(wide.width(), 4);
    EXPECT_EQ(wide.height(), 4);
    EXPECT_EQ(at(wide, 0, 0).red, 2);
    EXPECT_EQ(at(wide, 3, 3).red, 5);

    const auto rows = [](int, int y) { return Colour{static_cast<std::uint8_t>(y), 0, 0}; };
    const Bitmap tall = centreSquare(painted(4, 10, rows));
    EXPECT_EQ(tall.height(), 4);
    EXPECT_EQ(at(tall, 0, 0).red, 3);
    EXPECT_EQ(at(tall, 3, 3).red, 6);
}

TEST(BitmapTransforms, TheCentreSquareOfASquareKeepsThePixels) {
    const Bitmap bitmap = quarters(8, 8);
    EXPECT_TRUE(centreSquare(bitmap).sharesPixelsWith(bitmap));
}

TEST(BitmapTransforms, AnyPartComesFromTheMiddle) {
    const Bitmap whole = painted(9, 10, [](int x, int y) {
        return Colour{static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 0};
    });
    const Bitmap part = centrePart(whole, {5, 2});
    EXPECT_EQ(part.width(), 5);
    EXPECT_EQ(part.height(), 2);
    EXPECT_EQ(at(part, 0, 0), (Colour{2, 4, 0}));
    EXPECT_EQ(at(part, 4, 1), (Colour{6, 5, 0}));
    EXPECT_TRUE(centrePart(whole, {9, 10}).sharesPixelsWith(whole));
}

struct TurnCase {
    std::uint32_t orientation;
    PixelSize size;
    std::array<Colour, 4> quarters;
};

TEST(BitmapTransforms, EveryOrientationIsTurnedUpright) {
    const Bitmap stored = quarters(6, 4);
    const std::array cases{
        TurnCase{1, {6, 4}, {red, green, blue, white}},
        TurnCase{2, {6, 4}, {green, red, white, blue}},
        TurnCase{3, {6, 4}, {white, blue, green, red}},
        TurnCase{4, {6, 4}, {blue, white, red, green}},
        TurnCase{5, {4, 6}, {red, blue, green, white}},
        TurnCase{6, {4, 6}, {blue, red, white, green}},
        TurnCase{7, {4, 6}, {white, green, blue, red}},
        TurnCase{8, {4, 6}, {green, white, red, blue}},
    };
    for (const auto& expected : cases) {
        const Bitmap turned = upright(stored, expected.orientation);
        EXPECT_EQ((PixelSize{turned.width(), turned.height()}), expected.size);
        EXPECT_EQ(quartersOf(turned), expected.quarters) << expected.orientation;
    }
}

TEST(BitmapTransforms, AnOrientationThatIsNoneLeavesTheBitmapAsItIs) {
    const Bitmap bitmap = quarters(6, 4);
    for (const std::uint32_t orientation : {0U, 1U, 9U, 4000000000U}) {
        EXPECT_TRUE(upright(bitmap, orientation).sharesPixelsWith(bitmap));
    }
}

}  // namespace
}  // namespace ornivo::testing
