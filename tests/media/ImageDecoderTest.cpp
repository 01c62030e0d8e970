#include "media/ImageDecoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <string>

#include "support/Pictures.h"
#include "support/RawFiles.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;

constexpr int maxDimension = 640;
constexpr int tolerance = 4;

std::optional<ImageDecoder::DecodedImage> decode(const fs::path& file) {
    return ImageDecoder::decode(file, maxDimension, false);
}

TEST(ImageDecoder, ALargeJpegIsReducedAndNotTurned) {
    const TempFolder folder;
    const auto file =
        writeJpeg(folder / "a.jpg", quarters(6000, 4000), {.exif = {.orientation = 6}});
    const auto decoded = decode(file);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->image.width(), 640);
    EXPECT_EQ(decoded->image.height(), 427);
    EXPECT_EQ(decoded->metadata.orientation, 6U);
    EXPECT_TRUE(isNear(at(decoded->image, 100, 100), {255, 0, 0}, tolerance));
    EXPECT_TRUE(isNear(at(decoded->image, 540, 100), {0, 255, 0}, tolerance));
}

TEST(ImageDecoder, ASmallJpegKeepsItsSize) {
    const TempFolder folder;
    const auto decoded = decode(writeJpeg(folder / "a.jpg", 600, 400));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->image.width(), 600);
    EXPECT_EQ(decoded->image.height(), 400);
}

TEST(ImageDecoder, ALongThinImageKeepsAnEdge) {
    const TempFolder folder;
    const auto decoded = decode(writeJpeg(folder / "a.jpg", 10000, 3));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->image.width(), 640);
    EXPECT_EQ(decoded->image.height(), 1);
}

TEST(ImageDecoder, AJpegWithoutPropertiesStillDecodes) {
    const TempFolder folder;
    const auto decoded = decode(writeJpeg(folder / "a.jpg", 60, 40));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->metadata, PhotoMetadata{});
    EXPECT_EQ(decoded->metadata.orientation, 1U);
}

TEST(ImageDecoder, EveryOrientationIsReported) {
    const TempFolder folder;
    for (std::uint16_t orientation = 1; orientation <= 8; ++orientation) {
        const auto file =
            writeJpeg(folder / "a.jpg", 60, 40, {.exif = {.orientation = orientation}});
        EXPECT_EQ(decode(file)->metadata.orientation, orientation);
    }
}

TEST(ImageDecoder, AnOrientationThatIsNoneOfTheEightCountsAsOne) {
    const TempFolder folder;
    const std::array tags{
        TiffDirectory().ascii(tag::orientation, "6"),
        TiffDirectory().shorts(tag::orientation, {0}),
        TiffDirectory().shorts(tag::orientation, {9}),
        TiffDirectory().shorts(tag::orientation, {6, 6}),
        TiffDirectory().longs(tag::orientation, {4294967295}),
    };
    for (const auto& directory : tags) {
        const auto file = writeJpegWithTags(folder / "a.jpg", 60, 40, directory);
        EXPECT_EQ(decode(file)->metadata.orientation, 1U);
    }
}

TEST(ImageDecoder, TheMetadataOfTheShotIsFilledIn) {
    const TempFolder folder;
    const Exif exif{.dateTimeOriginal = "2024:05:17 08:12:33", .position = {{-33.5, 151.25}}};
    const auto metadata = decode(writeJpeg(folder / "a.jpg", 60, 40, {.exif = exif}))->metadata;
    EXPECT_EQ(metadata.location, PhotoLocation::make(-33.5, 151.25));
    EXPECT_EQ(metadata.captureDate, "2024-05-17");
    EXPECT_EQ(metadata.captureSecond, 1715933553);
    EXPECT_EQ(metadata.quality, std::nullopt);
}

TEST(ImageDecoder, APositionOutOfBoundsIsAbsent) {
    const TempFolder folder;
    const auto file = writeJpeg(folder / "a.jpg", 60, 40, {.exif = {.position = {{91, 10}}}});
    EXPECT_EQ(decode(file)->metadata.location, std::nullopt);
}

TEST(ImageDecoder, ARawFileDevelopsByItsExtensionAlone) {
    const TempFolder folder;
    const auto dng = writeDng(folder / "a.dng", quarters(256, 192));
    for (const char* name :
         {"b.arw", "b.nef", "b.cr2", "b.cr3", "b.orf", "b.rw2", "b.raw", "b.dng", "b.DNG"}) {
        fs::copy_file(dng, folder / name, fs::copy_options::overwrite_existing);
        const auto decoded = decode(folder / name);
        ASSERT_TRUE(decoded) << name;
        EXPECT_EQ(decoded->image.width(), 256) << name;
        EXPECT_TRUE(isNear(at(decoded->image, 64, 48), {255, 0, 0}, tolerance)) << name;
    }
}

TEST(ImageDecoder, ARawFileUnderAnotherExtensionTakesTheOrdinaryRoad) {
    const TempFolder folder;
    const auto file = writeDng(folder / "a.jpg", quarters(256, 192), {.exif = {.orientation = 6}});
    const auto decoded = decode(file);
    ASSERT_TRUE(decoded);
    // The mosaic as it stands in the file: grey, not turned.
    EXPECT_EQ(decoded->image.width(), 256);
    EXPECT_EQ(decoded->metadata.orientation, 6U);
    const Colour found = at(decoded->image, 64, 48);
    EXPECT_TRUE(found.red == found.green && found.green == found.blue) << found;
}

TEST(ImageDecoder, AReadablePictureUnderARawExtensionIsAbsent) {
    const TempFolder folder;
    EXPECT_FALSE(decode(writeJpeg(folder / "a.dng", 256, 192)));
    EXPECT_FALSE(decode(writeTiff(folder / "b.dng", quarters(256, 192))));
}

TEST(ImageDecoder, ARawFileShotInPortraitArrivesUpright) {
    const TempFolder folder;
    const Exif exif{
        .orientation = 6, .dateTimeOriginal = "2024:05:17 08:12:33", .position = {{47.5, 8.25}}};
    const auto decoded = decode(writeDng(folder / "a.dng", quarters(256, 192), {.exif = exif}));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->image.width(), 192);
    EXPECT_EQ(decoded->image.height(), 256);
    EXPECT_TRUE(isNear(at(decoded->image, 48, 64), {0, 0, 255}, tolerance));
    EXPECT_EQ(decoded->metadata.orientation, 1U);
    EXPECT_EQ(decoded->metadata.captureDate, "2024-05-17");
    EXPECT_EQ(decoded->metadata.captureSecond, 1715933553);
    EXPECT_EQ(decoded->metadata.location, PhotoLocation::make(47.5, 8.25));
}

TEST(ImageDecoder, ARawFileShowsWhatTheCameraDeveloped) {
    const TempFolder folder;
    const std::string jpeg =
        jpegOf(quarters(810, 540),
               {.exif = {.orientation = 3, .dateTimeOriginal = "1999:01:01 00:00:00"}});
    for (const RawKind kind : allRawKinds) {
        const RawOptions options{.orientation = 6, .dateTimeOriginal = "2024:05:17 08:12:33"};
        const auto decoded = decode(writeRaw(folder.path(), kind, {{jpeg}}, options));
        ASSERT_TRUE(decoded) << kind;
        EXPECT_EQ(decoded->image.width(), 427) << kind;
        EXPECT_EQ(decoded->image.height(), 640) << kind;
        EXPECT_TRUE(isNear(at(decoded->image, 100, 100), {0, 0, 255}, 2 * tolerance)) << kind;
        EXPECT_EQ(decoded->metadata.orientation, 1U) << kind;
        EXPECT_EQ(decoded->metadata.captureDate, "2024-05-17") << kind;
    }
}

TEST(ImageDecoder, QualityOfARawFileIsMeasuredOnTheReducedPicture) {
    const TempFolder folder;
    // Stripes so fine that the reduced picture is an even grey.
    const auto stripes = painted(810, 540, [](int x, int) {
        return x / 2 % 2 == 0 ? Colour{255, 255, 255} : Colour{0, 0, 0};
    });
    const auto file = writeRaw(folder.path(), RawKind::cr3, {{jpegOf(stripes)}});
    const auto decoded = ImageDecoder::decode(file, 100, true);
    ASSERT_TRUE(decoded && decoded->metadata.quality);
    EXPECT_EQ(decoded->image.width(), 100);
    EXPECT_LT(decoded->metadata.quality->sharpness, 0.01);
    EXPECT_NEAR(decoded->metadata.quality->meanLuminance, 0.5, 0.05);
}

TEST(ImageDecoder, QualityIsAbsentUnlessAskedForOnBothRoads) {
    const TempFolder folder;
    const auto jpeg = writeJpeg(folder / "a.jpg", 60, 40, {.exif = {.iso = 800}});
    const auto dng = writeDng(folder / "a.dng", quarters(256, 192), {.exif = {.iso = 800}});
    for (const auto& file : {jpeg, dng}) {
        EXPECT_EQ(ImageDecoder::decode(file, maxDimension, false)->metadata.quality, std::nullopt);
        const auto quality = ImageDecoder::decode(file, maxDimension, true)->metadata.quality;
        ASSERT_TRUE(quality);
        EXPECT_EQ(quality->iso, 800);
        EXPECT_GT(quality->meanLuminance, 0.1);
    }
}

TEST(ImageDecoder, QualityIsMeasuredAtFullSizeOnTheOrdinaryRoadAlone) {
    const TempFolder folder;
    // Stripes so fine that the reduced picture is an even grey.
    const auto stripes = painted(1600, 1200, [](int x, int) {
        return x / 2 % 2 == 0 ? Colour{255, 255, 255} : Colour{0, 0, 0};
    });
    const auto png = ImageDecoder::decode(writePng(folder / "a.png", stripes), 100, true);
    const auto dng = ImageDecoder::decode(writeDng(folder / "a.dng", stripes), 100, true);
    ASSERT_TRUE(png && dng);
    EXPECT_GT(png->metadata.quality->sharpness, 0.5);
    EXPECT_LT(dng->metadata.quality->sharpness, 0.01);
    EXPECT_EQ(png->image.width(), 100);
    EXPECT_EQ(png->image.height(), 75);
}

TEST(ImageDecoder, MeasuringChangesNothingElse) {
    const TempFolder folder;
    const auto file = writePng(folder / "a.png", quarters(900, 700));
    const auto plain = ImageDecoder::decode(file, maxDimension, false);
    const auto measured = ImageDecoder::decode(file, maxDimension, true);
    ASSERT_TRUE(plain && measured);
    EXPECT_TRUE(std::ranges::equal(plain->image.pixels(), measured->image.pixels()));
}

TEST(ImageDecoder, DecodeCGImageKeepsTheBitmapAndTheOrientation) {
    const TempFolder folder;
    const auto file = writeJpeg(folder / "a.jpg", 900, 600, {.exif = {.orientation = 8}});
    const auto decoded = ImageDecoder::decodeCGImage(file, maxDimension);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->image.width(), 640);
    EXPECT_EQ(decoded->orientation, 8U);
    EXPECT_FALSE(ImageDecoder::decodeCGImage(folder / "missing.jpg", maxDimension));
}

TEST(ImageDecoder, PropertiesComeFromTheHeaders) {
    const TempFolder folder;
    const auto file = writeJpeg(folder / "a.jpg", 60, 40, {.exif = {.orientation = 8}});
    EXPECT_EQ(ImageDecoder::properties(file)->at(property::orientation), 8);
    EXPECT_FALSE(ImageDecoder::properties(folder / "missing.jpg"));
}

TEST(ImageDecoder, WhatCannotBeDecodedIsAbsent) {
    const TempFolder folder;
    EXPECT_FALSE(decode(folder / "missing.jpg"));
    EXPECT_FALSE(decode(folder / "missing.dng"));
    EXPECT_FALSE(decode(writeFile(folder / "empty.jpg", "")));
    EXPECT_FALSE(decode(writeFile(folder / "text.jpg", "These are words.\n")));
}

TEST(ImageDecoderSamples, OrientationsAreReported) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    for (const std::string shape : {"Landscape", "Portrait"}) {
        for (std::uint32_t orientation = 1; orientation <= 8; ++orientation) {
            const auto name = shape + "_" + std::to_string(orientation) + ".jpg";
            const auto decoded = decode(sampleMedia() / "formats" / name);
            ASSERT_TRUE(decoded) << name;
            EXPECT_EQ(decoded->metadata.orientation, orientation) << name;
            const bool isStoredWide = decoded->image.width() > decoded->image.height();
            EXPECT_EQ(isStoredWide, (shape == "Landscape") == (orientation <= 4)) << name;
        }
    }
}

TEST(ImageDecoderSamples, AHeicIsUpright) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    const auto decoded = decode(sampleMedia() / "formats" / "iphone.heic");
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->metadata.orientation, 1U);
    EXPECT_EQ(decoded->metadata.captureDate, "2026-02-19");
    EXPECT_TRUE(decoded->metadata.location);
}

TEST(ImageDecoderSamples, APositionInTheSouthOrWestIsNegative) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    const auto decoded = decode(sampleMedia() / "metadata" / "gps-datetime.jpg");
    ASSERT_TRUE(decoded && decoded->metadata.location);
    EXPECT_NEAR(decoded->metadata.location->latitude(), 37.7749, 1e-4);
    EXPECT_NEAR(decoded->metadata.location->longitude(), -122.4194, 1e-4);
}

TEST(ImageDecoderSamples, ImpossiblePositionsAreAbsent) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    for (const char* name : {"exif_gps.jpg", "empty_gps.jpg", "empty_gps_ifd.jpg",
                             "exif_gps_typeerror.jpg", "date-priority-test.jpg"}) {
        const auto decoded = decode(sampleMedia() / "metadata" / name);
        ASSERT_TRUE(decoded) << name;
        EXPECT_EQ(decoded->metadata.location, std::nullopt) << name;
    }
}

}  // namespace
}  // namespace ornivo::testing
