#include "platform/JpegEncoder.h"

#include <gtest/gtest.h>

#include "platform/StillDecoder.h"
#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

using namespace testing;

TEST(JpegEncoder, APictureComesBackWithItsColoursAndItsSize) {
    const TempFolder folder;
    const auto jpeg = jpegOf(quarters(200, 100), 85);
    ASSERT_TRUE(jpeg);
    const auto still = decodeStill(writeFile(folder / "a.jpg", *jpeg), std::nullopt);
    ASSERT_TRUE(still);
    EXPECT_EQ(still->bitmap.width(), 200);
    EXPECT_EQ(still->bitmap.height(), 100);
    EXPECT_TRUE(isNear(at(still->bitmap, 20, 20), {255, 0, 0}, 6));
    EXPECT_TRUE(isNear(at(still->bitmap, 180, 20), {0, 255, 0}, 6));
}

TEST(JpegEncoder, NoMetadataIsWritten) {
    const auto jpeg = jpegOf(filled(20, 20), 85);
    ASSERT_TRUE(jpeg);
    EXPECT_EQ(jpeg->find("Exif"), std::string::npos);
    EXPECT_EQ(jpeg->find("ICC_PROFILE"), std::string::npos);
}

TEST(JpegEncoder, LessQualityIsASmallerFile) {
    const Bitmap picture = painted(200, 200, [](int x, int y) {
        return Colour{std::uint8_t(x * y), 90, 120};
    });
    EXPECT_LT(jpegOf(picture, 40)->size(), jpegOf(picture, 85)->size());
}

}  // namespace
}  // namespace ornivo
