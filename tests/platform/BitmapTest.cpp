#include "platform/Bitmap.h"

#include <gtest/gtest.h>

#include "support/Pictures.h"

namespace ornivo::testing {
namespace {

TEST(Bitmap, TellsItsSidesAndPixels) {
    const Bitmap bitmap(2, 1, {1, 2, 3, 4, 5, 6});
    EXPECT_EQ(bitmap.width(), 2);
    EXPECT_EQ(bitmap.height(), 1);
    EXPECT_EQ(at(bitmap, 0, 0), (Colour{1, 2, 3}));
    EXPECT_EQ(at(bitmap, 1, 0), (Colour{4, 5, 6}));
}

TEST(Bitmap, ACopySharesItsPixels) {
    const Bitmap bitmap = filled(3, 2);
    const Bitmap copy = bitmap;
    EXPECT_TRUE(copy.sharesPixelsWith(bitmap));
    EXPECT_FALSE(filled(3, 2).sharesPixelsWith(bitmap));
}

TEST(BitmapDeathTest, BytesThatDoNotFitTheSidesEndTheProcess) {
    EXPECT_DEATH(Bitmap(2, 2, {1, 2, 3}), "A bitmap of 2 x 2 was given 3 bytes\\.");
    EXPECT_DEATH(Bitmap(0, 2, {}), "A bitmap of 0 x 2 was given 0 bytes\\.");
}

}  // namespace
}  // namespace ornivo::testing
