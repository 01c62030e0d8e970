#include "media/RawPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <string>

#include "platform/BitmapTransforms.h"
#include "support/Pictures.h"
#include "support/RawFiles.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;

constexpr int maxDimension = 640;
constexpr int tolerance = 8;
constexpr Colour teal{40, 160, 150};
constexpr Colour amber{220, 150, 40};

PixelSize sizeOf(const std::optional<Bitmap>& bitmap) {
    return bitmap ? PixelSize{bitmap->width(), bitmap->height()} : PixelSize{0, 0};
}

Colour middleOf(const Bitmap& bitmap) {
    return at(bitmap, bitmap.width() / 2, bitmap.height() / 2);
}

/// A JPEG of one colour, made once.
const std::string& flatJpeg(PixelSize size, Colour colour) {
    static std::map<std::array<int, 5>, std::string> made;
    std::string& jpeg = made[{size.width, size.height, colour.red, colour.green, colour.blue}];
    if (jpeg.empty()) jpeg = jpegOf(filled(size.width, size.height, colour));
    return jpeg;
}

/// Whether both show the same colours in the middles of their quarters.
::testing::AssertionResult showsQuartersOf(const std::optional<Bitmap>& found,
                                           const Bitmap& wanted) {
    if (!found) return ::testing::AssertionFailure() << "absent";
    for (const auto& [x, y] : {std::pair{1, 1}, {3, 1}, {1, 3}, {3, 3}}) {
        const Colour is = at(*found, found->width() * x / 4, found->height() * y / 4);
        const Colour should = at(wanted, wanted.width() * x / 4, wanted.height() * y / 4);
        if (isNear(is, should, tolerance)) continue;
        return ::testing::AssertionFailure()
               << "at " << x << "/4, " << y << "/4: " << is << " for " << should;
    }
    return ::testing::AssertionSuccess();
}

/// Tests that hold for each maker's container.
class RawPicture : public ::testing::TestWithParam<RawKind> {
protected:
    fs::path write(const std::vector<RawPreview>& previews, const RawOptions& options = {}) const {
        return writeRaw(folder_.path(), GetParam(), previews, options);
    }

    std::optional<Bitmap> decoded(const std::vector<RawPreview>& previews,
                                  const RawOptions& options = {}, int side = maxDimension) const {
        return decodeRawPicture(write(previews, options), side);
    }

    TempFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(Makers, RawPicture, ::testing::ValuesIn(allRawKinds),
                         [](const auto& kind) { return std::string(extensionOf(kind.param)); });

TEST_P(RawPicture, ThePreviewIsThePicture) {
    const Bitmap scene = quarters(810, 540);
    const auto picture = decoded({{jpegOf(scene)}});
    EXPECT_EQ(sizeOf(picture), (PixelSize{640, 427}));
    EXPECT_TRUE(showsQuartersOf(picture, scene));
}

TEST_P(RawPicture, TheSecondPlaceIsFoundToo) {
    const Bitmap scene = quarters(810, 540);
    EXPECT_TRUE(showsQuartersOf(decoded({{}, {jpegOf(scene)}}), scene));
}

TEST_P(RawPicture, EveryOrientationComesUpright) {
    const Bitmap stored = quarters(810, 540);
    const std::string jpeg = jpegOf(stored);
    for (std::uint16_t orientation = 1; orientation <= 8; ++orientation) {
        const auto picture = decoded({{jpeg}}, {.orientation = orientation}, 160);
        EXPECT_TRUE(showsQuartersOf(picture, upright(stored, orientation))) << orientation;
        const bool isUpright = picture && picture->height() > picture->width();
        EXPECT_EQ(isUpright, orientation >= 5) << orientation;
    }
}

TEST_P(RawPicture, APreviewThatTheCameraTurnedIsNotTurnedAgain) {
    for (std::uint16_t orientation = 5; orientation <= 8; ++orientation) {
        const Bitmap turned = upright(quarters(810, 540), orientation);
        const auto picture = decoded({{jpegOf(turned)}}, {.orientation = orientation}, 160);
        EXPECT_TRUE(showsQuartersOf(picture, turned)) << orientation;
    }
}

TEST_P(RawPicture, ThePreviewsOwnOrientationDoesNotCount) {
    const Bitmap stored = quarters(810, 540);
    const std::string jpeg = jpegOf(stored, {.exif = {.orientation = 3}});
    EXPECT_TRUE(showsQuartersOf(decoded({{jpeg}}, {.orientation = 6}), upright(stored, 6)));
    EXPECT_TRUE(showsQuartersOf(decoded({{jpeg}}, {.orientation = 1}), stored));
}

TEST_P(RawPicture, AdobeRGBBecomesSRGBWhereverItIsTold) {
    const std::string jpeg = jpegOf(quartersInAdobeRGB(810, 540));
    for (const AdobeMark mark : {AdobeMark::exif, AdobeMark::interoperability}) {
        const auto picture = decoded({{jpeg}}, {.adobe = mark});
        EXPECT_TRUE(showsQuartersOf(picture, quarters(810, 540))) << static_cast<int>(mark);
    }
}

TEST_P(RawPicture, AGreyPreviewStaysGreyWhateverColoursTheFileTells) {
    const std::string jpeg = jpegOf(filled(810, 540, {90, 90, 90}), {.kind = JpegKind::grey});
    for (const AdobeMark mark : {AdobeMark::none, AdobeMark::exif}) {
        const auto picture = decoded({{jpeg}}, {.adobe = mark});
        ASSERT_TRUE(picture);
        const Colour found = middleOf(*picture);
        EXPECT_TRUE(isNear(found, {90, 90, 90}, 2 * tolerance)) << found;
        EXPECT_TRUE(found.red == found.green && found.green == found.blue) << found;
    }
}

TEST_P(RawPicture, AProfileInThePreviewGoesBeforeWhatTheFileTells) {
    const Bitmap scene = quarters(810, 540);
    const std::string jpeg = jpegOf(scene, {.kind = JpegKind::displayP3});
    EXPECT_TRUE(showsQuartersOf(decoded({{jpeg}}, {.adobe = AdobeMark::exif}), scene));
}

TEST_P(RawPicture, TheSmallestThatIsLargeEnoughIsTaken) {
    const std::string small = flatJpeg({810, 540}, teal);
    const std::string large = flatJpeg({1200, 800}, amber);
    for (const auto& previews :
         {std::vector<RawPreview>{{small}, {large}}, std::vector<RawPreview>{{large}, {small}}}) {
        const auto file = write(previews);
        for (const int side : {64, 640, 810}) {
            const auto picture = decodeRawPicture(file, side);
            ASSERT_TRUE(picture);
            EXPECT_TRUE(isNear(middleOf(*picture), teal, tolerance)) << side;
        }
        const auto picture = decodeRawPicture(file, 811);
        ASSERT_TRUE(picture);
        EXPECT_TRUE(isNear(middleOf(*picture), amber, tolerance));
        EXPECT_EQ(sizeOf(picture), (PixelSize{811, 541}));
    }
}

TEST_P(RawPicture, ASmallerOneIsNotEnlarged) {
    const auto file = write({{jpegOf(filled(900, 600, teal))}});
    EXPECT_EQ(sizeOf(decodeRawPicture(file, 1600)), (PixelSize{900, 600}));
}

TEST_P(RawPicture, OneOfLessThan640PixelsDoesNotServe) {
    EXPECT_FALSE(decoded({{jpegOf(filled(600, 400, teal))}}));
}

TEST_P(RawPicture, APreviewOfAnotherShapeIsPassedOver) {
    const std::string square = jpegOf(filled(1000, 1000, amber));
    const std::string right = flatJpeg({810, 540}, teal);
    for (const auto& previews :
         {std::vector<RawPreview>{{square}, {right}}, std::vector<RawPreview>{{right}, {square}}}) {
        const auto picture = decoded(previews);
        ASSERT_TRUE(picture);
        EXPECT_TRUE(isNear(middleOf(*picture), teal, tolerance));
    }
    EXPECT_FALSE(decoded({{square}}));
}

/// The scene in the middle of black.
Bitmap laidOnBlack(const Bitmap& scene, PixelSize whole) {
    const int left = (whole.width - scene.width()) / 2;
    const int top = (whole.height - scene.height()) / 2;
    return painted(whole.width, whole.height, [&](int x, int y) {
        const bool isInside =
            x >= left && x < left + scene.width() && y >= top && y < top + scene.height();
        return isInside ? at(scene, x - left, y - top) : Colour{0, 0, 0};
    });
}

TEST_P(RawPicture, BlackBarsAreCutOff) {
    const Bitmap scene = quarters(800, 533);
    const auto jpeg = jpegOf(laidOnBlack(scene, {800, 600}));
    for (const std::uint16_t orientation : std::array<std::uint16_t, 2>{1, 6}) {
        const auto picture = decoded({{jpeg}}, {.orientation = orientation});
        const Bitmap wanted = upright(scene, orientation);
        EXPECT_TRUE(showsQuartersOf(picture, wanted)) << orientation;
        ASSERT_EQ(std::max(sizeOf(picture).width, sizeOf(picture).height), 640);
        // Nothing of the bars is left, and little of the picture is lost.
        for (const auto& [x, y] :
             {std::pair{0, 0}, {picture->width() - 1, picture->height() - 1}}) {
            const Colour is = at(*picture, x, y);
            const bool isBlack = isNear(is, {0, 0, 0}, 60);
            EXPECT_FALSE(isBlack) << orientation << " " << is;
        }
        EXPECT_NEAR(std::min(picture->width(), picture->height()), 427, 2);
    }
}

TEST_P(RawPicture, BarsAtTheSidesOfATurnedPreviewAreCutOff) {
    const Bitmap turned = upright(quarters(960, 640), 6);
    const auto jpeg = jpegOf(laidOnBlack(turned, {1280, 960}));
    const auto picture = decoded({{jpeg}}, {.orientation = 6});
    EXPECT_TRUE(showsQuartersOf(picture, turned));
    EXPECT_EQ(sizeOf(picture).height, 640);
    EXPECT_NEAR(sizeOf(picture).width, 427, 2);
}

TEST_P(RawPicture, TheChosenAspectDecidesWhatIsABar) {
    // A wide picture on a sensor of 3:2, its preview with bars.
    const Bitmap scene = quarters(810, 456);
    const auto jpeg = jpegOf(laidOnBlack(scene, {810, 540}));
    const auto picture = decoded({{jpeg}}, {.picture = PixelSize{6000, 3376}});
    EXPECT_TRUE(showsQuartersOf(picture, scene));
    EXPECT_NEAR(sizeOf(picture).height, 360, 2);
}

TEST_P(RawPicture, ATruncatedPreviewIsPassedOver) {
    const std::string whole = flatJpeg({1200, 800}, teal);
    const std::string cut = jpegOf(quarters(810, 540));
    const RawPreview halved{cut.substr(0, cut.size() / 2)};
    const auto picture = decoded({halved, {whole}});
    ASSERT_TRUE(picture);
    EXPECT_TRUE(isNear(middleOf(*picture), teal, tolerance));
    EXPECT_FALSE(decoded({halved}));
}

TEST_P(RawPicture, AFileCutOffWithinItsOnlyPreviewIsAbsent) {
    const auto file = write({{jpegOf(quarters(810, 540))}});
    const std::string whole = readFile(file);
    for (const double kept : {0.9, 0.5, 0.1}) {
        const auto length =
            static_cast<std::size_t>(kept * static_cast<double>(whole.size() - 8192));
        const auto name = "cut." + std::string(extensionOf(GetParam()));
        EXPECT_FALSE(decodeRawPicture(writeFile(folder_ / name, whole.substr(0, length)), 640))
            << kept;
    }
}

TEST_P(RawPicture, WhatIsToldToLiePastTheEndIsPassedOver) {
    const std::string jpeg = flatJpeg({810, 540}, amber);
    const std::string right = flatJpeg({1200, 800}, teal);
    for (const std::uint32_t offset : {0x7FFFFFF0U, 0xFFFFFFF0U, 0xFFFFFFFFU}) {
        // A CR3 holds its preview itself, and tells the offset of its track alone.
        const bool isSecond = GetParam() == RawKind::cr3;
        const RawPreview lost{jpeg, offset};
        const auto picture = isSecond ? decoded({{right}, lost}) : decoded({lost, {right}});
        ASSERT_TRUE(picture);
        EXPECT_TRUE(isNear(middleOf(*picture), teal, tolerance));
    }
}

TEST_P(RawPicture, ALengthOfFourGigabytesIsNotBelieved) {
    const std::string jpeg = flatJpeg({810, 540}, amber);
    const std::string right = flatJpeg({1200, 800}, teal);
    for (const std::uint32_t length : {0xFFFFFFFFU, 0xFFFFFF00U}) {
        // A CR3 holds its preview itself, and tells the length of its track's sample alone.
        const bool isSecond = GetParam() == RawKind::cr3;
        const RawPreview lost{jpeg, {}, length};
        const auto picture = isSecond ? decoded({{right}, lost}) : decoded({lost, {right}});
        ASSERT_TRUE(picture);
        EXPECT_TRUE(isNear(middleOf(*picture), teal, tolerance));
    }
}

TEST_P(RawPicture, WithoutAPreviewSensorDataThatNobodyKnowsAreAbsent) {
    EXPECT_FALSE(decoded({}));
    EXPECT_FALSE(decoded({}, {.sensorBytes = 4'000'000}));
}

TEST_P(RawPicture, TheContainerCountsAndNotTheName) {
    const auto file = write({{flatJpeg({810, 540}, teal)}});
    fs::rename(file, folder_ / "other.dng");
    EXPECT_TRUE(decodeRawPicture(folder_ / "other.dng", maxDimension));
}

/// Kinds that have a tag of their own for Adobe RGB.
class RawPictureColours : public RawPicture {};

INSTANTIATE_TEST_SUITE_P(Makers, RawPictureColours,
                         ::testing::Values(RawKind::nef, RawKind::cr2, RawKind::orf, RawKind::dng,
                                           RawKind::cr3),
                         [](const auto& kind) { return std::string(extensionOf(kind.param)); });

TEST_P(RawPictureColours, AdobeRGBInTheMakersNotesBecomesSRGB) {
    const std::string jpeg = jpegOf(quartersInAdobeRGB(810, 540));
    const auto picture = decoded({{jpeg}}, {.adobe = AdobeMark::makerNote});
    EXPECT_TRUE(showsQuartersOf(picture, quarters(810, 540)));
}

TEST(RawPictureFallback, WhatALibraryFindsServesWhereOurReaderFindsNothing) {
    const TempFolder folder;
    const std::string jpeg = jpegOf(quarters(810, 540));
    const auto picture = decodeRawPicture(writeFile(folder / "a.dng", pentaxDngFile(jpeg)), 640);
    EXPECT_TRUE(showsQuartersOf(picture, quarters(810, 540)));
}

TEST(RawPictureFallback, AFileWithoutAPreviewIsDeveloped) {
    const TempFolder folder;
    const auto picture = decodeRawPicture(writeDng(folder / "a.dng", quarters(256, 192)), 640);
    EXPECT_EQ(sizeOf(picture), (PixelSize{256, 192}));
    EXPECT_TRUE(showsQuartersOf(picture, quarters(256, 192)));
}

TEST(RawPictureFallback, APictureThatIsNoRawFileIsAbsent) {
    const TempFolder folder;
    EXPECT_FALSE(decodeRawPicture(writeJpeg(folder / "a.nef", 810, 540), 640));
    EXPECT_FALSE(decodeRawPicture(writeTiff(folder / "b.dng", quarters(900, 600)), 640));
    const auto deep = writeTiff(folder / "deep.dng", quarters(900, 600), TiffKind::sixteenBit);
    EXPECT_FALSE(decodeRawPicture(deep, 640));
    EXPECT_FALSE(decodeRawPicture(writeFile(folder / "c.cr3", ""), 640));
    EXPECT_FALSE(decodeRawPicture(folder / "missing.arw", 640));
    EXPECT_FALSE(decodeRawPicture(folder.path(), 640));
}

TEST(RawPictureSamples, AWholePreviewIsThePictureAndACutOneIsAbsent) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    for (const auto& entry : fs::directory_iterator(sampleMedia() / "raw")) {
        const auto picture = decodeRawPicture(entry.path(), maxDimension);
        const bool isWhole = entry.path().filename() == "Canon-R6-pruned.CR3";
        const PixelSize expected = isWhole ? PixelSize{640, 427} : PixelSize{0, 0};
        EXPECT_EQ(sizeOf(picture), expected) << entry.path();
    }
}

TEST(RawPictureSamples, NoBrokenFileCrashesOrSpeaks) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    ::testing::internal::CaptureStderr();
    for (const auto& entry : fs::directory_iterator(sampleMedia() / "broken")) {
        EXPECT_FALSE(decodeRawPicture(entry.path(), maxDimension)) << entry.path();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace ornivo::testing
