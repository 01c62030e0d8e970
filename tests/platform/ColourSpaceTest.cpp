#include "platform/ColourSpace.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/StillDecoder.h"
#include "support/Pictures.h"

namespace ornivo::testing {
namespace {

constexpr int tolerance = 4;

/// What the decoder makes of a colour's numbers in a colour space.
Colour shown(Colour numbers, ColourSpace space, JpegKind kind = JpegKind::colour) {
    const std::string jpeg = jpegOf(filled(64, 64, numbers), {.kind = kind});
    const std::vector<std::uint8_t> bytes(jpeg.begin(), jpeg.end());
    const auto bitmap = decodeJpeg(bytes, 64, profileOf(space));
    return bitmap ? at(*bitmap, 32, 32) : Colour{0, 0, 0};
}

TEST(ColourSpace, AdobeRGBHasAWiderGreenAndTheSameGrey) {
    EXPECT_TRUE(isNear(shown({219, 0, 0}, ColourSpace::adobeRGB), {255, 0, 0}, tolerance));
    EXPECT_TRUE(isNear(shown({144, 255, 60}, ColourSpace::adobeRGB), {0, 255, 0}, tolerance));
    EXPECT_TRUE(isNear(shown({128, 128, 128}, ColourSpace::adobeRGB), {128, 128, 128}, tolerance));
    EXPECT_TRUE(isNear(shown({255, 255, 255}, ColourSpace::adobeRGB), {255, 255, 255}, tolerance));
}

TEST(ColourSpace, ProPhotoIsWiderStillAndDarkerInItsNumbers) {
    // sRGB's red in ROMM RGB.
    EXPECT_TRUE(isNear(shown({179, 70, 26}, ColourSpace::proPhoto), {255, 0, 0}, 10));
    EXPECT_TRUE(isNear(shown({255, 255, 255}, ColourSpace::proPhoto), {255, 255, 255}, tolerance));
}

TEST(ColourSpace, SRGBNeedsNoProfile) {
    EXPECT_TRUE(profileOf(ColourSpace::sRGB).empty());
    EXPECT_TRUE(profileOf(ColourSpace::unknown).empty());
    EXPECT_TRUE(isNear(shown({219, 30, 60}, ColourSpace::sRGB), {219, 30, 60}, tolerance));
}

TEST(ColourSpace, AProfileInTheJpegGoesBeforeAnother) {
    const Colour colour{200, 80, 60};
    EXPECT_TRUE(
        isNear(shown(colour, ColourSpace::adobeRGB, JpegKind::displayP3), colour, tolerance));
}

}  // namespace
}  // namespace ornivo::testing
