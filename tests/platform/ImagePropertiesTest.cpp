#include "platform/ImageProperties.h"

#include <gtest/gtest.h>

#include <future>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr double positionTolerance = 1e-6;

/// The properties of a small JPEG with these tags.
json propertiesOf(const TiffDirectory& tags) {
    const TempFolder folder;
    const auto found = readImageProperties(writeJpegWithTags(folder / "a.jpg", 8, 8, tags));
    EXPECT_TRUE(found);
    return found.value_or(json());
}

json gpsOf(const TiffDirectory& gps) {
    return propertiesOf(TiffDirectory().directory(tag::gpsDirectory, gps)).at(property::gpsGroup);
}

json exifOf(const TiffDirectory& exif) {
    return propertiesOf(TiffDirectory().directory(tag::exifDirectory, exif))
        .at(property::exifGroup);
}

TEST(ImageProperties, TellsOrientationDatesPositionAndIso) {
    const TempFolder folder;
    const Exif exif{.orientation = 6,
                    .dateTimeOriginal = "2024:05:17 08:12:33",
                    .dateTime = "2024:06:01 10:00:00",
                    .position = {{-33.856784, 151.215297}},
                    .iso = 800};
    const auto properties =
        readImageProperties(writeJpeg(folder / "a.jpg", 16, 16, {.exif = exif}));
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->at(property::orientation), 6);
    const json& group = properties->at(property::exifGroup);
    EXPECT_EQ(group.at(property::exifDateTimeOriginal), "2024:05:17 08:12:33");
    EXPECT_EQ(group.at(property::exifIsoSpeedRatings), 800);
    EXPECT_EQ(properties->at(property::tiffGroup).at(property::tiffDateTime),
              "2024:06:01 10:00:00");
    const json& gps = properties->at(property::gpsGroup);
    EXPECT_NEAR(gps.at(property::gpsLatitude).get<double>(), 33.856784, positionTolerance);
    EXPECT_EQ(gps.at(property::gpsLatitudeRef), "S");
    EXPECT_NEAR(gps.at(property::gpsLongitude).get<double>(), 151.215297, positionTolerance);
    EXPECT_EQ(gps.at(property::gpsLongitudeRef), "E");
}

TEST(ImageProperties, APictureWithoutMetadataHasNone) {
    const TempFolder folder;
    EXPECT_EQ(readImageProperties(writeJpeg(folder / "a.jpg", 16, 16)), json::object());
}

TEST(ImageProperties, WhatIsNoPictureIsAbsent) {
    const TempFolder folder;
    EXPECT_FALSE(readImageProperties(writeFile(folder / "empty.jpg", "")));
    EXPECT_FALSE(readImageProperties(writeFile(folder / "text.jpg", "These are words.\n")));
    EXPECT_FALSE(readImageProperties(folder / "missing.jpg"));
    EXPECT_FALSE(readImageProperties(folder.path()));
}

TEST(ImageProperties, EveryOrientationIsReported) {
    for (std::uint16_t orientation = 1; orientation <= 8; ++orientation) {
        EXPECT_EQ(propertiesOf(TiffDirectory().shorts(tag::orientation, {orientation}))
                      .at(property::orientation),
                  orientation);
    }
}

TEST(ImageProperties, AnOrientationOfAnotherTypeStaysWhatItIs) {
    EXPECT_EQ(
        propertiesOf(TiffDirectory().ascii(tag::orientation, "Sideways")).at(property::orientation),
        "Sideways");
}

TEST(ImageProperties, SeveralNumbersAreAList) {
    EXPECT_EQ(exifOf(TiffDirectory().shorts(tag::isoSpeedRatings, {800, 1600}))
                  .at(property::exifIsoSpeedRatings),
              (json{800, 1600}));
}

TEST(ImageProperties, AFractionIsItsQuotient) {
    constexpr std::uint16_t exposureTime = 33434;
    EXPECT_EQ(exifOf(TiffDirectory().rationals(exposureTime, {{1, 250}})).at("ExposureTime"),
              0.004);
}

TEST(ImageProperties, AFractionWithoutADenominatorIsLeftOut) {
    constexpr std::uint16_t exposureTime = 33434;
    const json exif = exifOf(
        TiffDirectory().rationals(exposureTime, {{1, 0}}).shorts(tag::isoSpeedRatings, {100}));
    EXPECT_FALSE(exif.contains("ExposureTime"));
    EXPECT_EQ(exif.at(property::exifIsoSpeedRatings), 100);
}

TEST(ImageProperties, TextThatIsNotUtf8IsMadeValid) {
    const json exif = exifOf(TiffDirectory().ascii(tag::dateTimeOriginal, "Z\xFCrich"));
    EXPECT_EQ(exif.at(property::exifDateTimeOriginal), "Z\uFFFDrich");
    EXPECT_NO_THROW(exif.dump());
}

TEST(ImageProperties, ADateOfAnotherTypeStaysWhatItIs) {
    EXPECT_EQ(exifOf(TiffDirectory().longs(tag::dateTimeOriginal, {20240517}))
                  .at(property::exifDateTimeOriginal),
              20240517);
}

TEST(ImageProperties, ADateOfCaptureAmongTheFirstTagsCountsAsOneOfTheExifGroup) {
    const json properties =
        propertiesOf(TiffDirectory().ascii(tag::dateTimeOriginal, "2024:05:17 08:12:33"));
    EXPECT_EQ(properties.at(property::exifGroup).at(property::exifDateTimeOriginal),
              "2024:05:17 08:12:33");
}

TEST(ImageProperties, TheExifGroupsOwnDateOfCaptureComesFirst) {
    const json properties = propertiesOf(
        TiffDirectory()
            .ascii(tag::dateTimeOriginal, "2000:01:01 00:00:00")
            .directory(tag::exifDirectory,
                       TiffDirectory().ascii(tag::dateTimeOriginal, "2024:05:17 08:12:33")));
    EXPECT_EQ(properties.at(property::exifGroup).at(property::exifDateTimeOriginal),
              "2024:05:17 08:12:33");
}

TEST(ImageProperties, PositionsAreDegreesWhateverPartsTheFileHolds) {
    const std::vector<std::vector<TiffDirectory::Rational>> forms{
        {{475, 10}}, {{47, 1}, {30, 1}}, {{47, 1}, {29, 1}, {60, 1}}, {{47, 1}, {30, 1}, {0, 0}}};
    for (const auto& parts : forms) {
        const json gps = gpsOf(TiffDirectory().rationals(tag::gpsLatitude, parts));
        EXPECT_NEAR(gps.at(property::gpsLatitude).get<double>(), 47.5, positionTolerance);
    }
}

TEST(ImageProperties, APositionWithoutDegreesIsLeftOut) {
    const json gps = gpsOf(TiffDirectory()
                               .ascii(tag::gpsLatitudeRef, "N")
                               .rationals(tag::gpsLatitude, {{0, 0}, {30, 1}, {0, 1}}));
    EXPECT_EQ(gps, (json{{property::gpsLatitudeRef, "N"}}));
}

TEST(ImageProperties, AGroupWithNothingUsableIsNotThere) {
    const json properties = propertiesOf(TiffDirectory().directory(
        tag::gpsDirectory, TiffDirectory().rationals(tag::gpsLatitude, {{0, 0}})));
    EXPECT_FALSE(properties.contains(property::gpsGroup));
}

TEST(ImageProperties, ANegativePositionIsLeftOut) {
    const json gps = gpsOf(TiffDirectory()
                               .ascii(tag::gpsLatitudeRef, "N")
                               .signedRationals(tag::gpsLatitude, {{-47, 1}, {30, 1}, {0, 1}}));
    EXPECT_FALSE(gps.contains(property::gpsLatitude));
}

TEST(ImageProperties, APositionThatIsTextStaysText) {
    const json gps = gpsOf(TiffDirectory().ascii(tag::gpsLatitude, "47.5"));
    EXPECT_EQ(gps.at(property::gpsLatitude), "47.5");
}

TEST(ImageProperties, TablesAndMakersNotesAreLeftOut) {
    constexpr std::uint16_t stripOffsets = 273;
    const json properties = propertiesOf(TiffDirectory()
                                             .shorts(tag::orientation, {1})
                                             .longs(stripOffsets, std::vector<std::uint32_t>(500)));
    EXPECT_FALSE(properties.at(property::tiffGroup).contains("StripOffsets"));
}

TEST(ImageProperties, ADngTellsAsAJpegDoes) {
    const TempFolder folder;
    const auto file = writeDng(folder / "a.dng", quarters(64, 64),
                               {.exif = {.orientation = 8,
                                         .dateTimeOriginal = "2024:05:17 08:12:33",
                                         .position = {{47.5, -8.25}}}});
    const auto properties = readImageProperties(file);
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->at(property::orientation), 8);
    EXPECT_EQ(properties->at(property::exifGroup).at(property::exifDateTimeOriginal),
              "2024:05:17 08:12:33");
    EXPECT_EQ(properties->at(property::gpsGroup).at(property::gpsLongitude), 8.25);
}

TEST(ImageProperties, SeveralThreadsGetWhatOneGets) {
    const TempFolder folder;
    const auto file = writeJpeg(folder / "a.jpg", 16, 16, {.exif = {.orientation = 3, .iso = 400}});
    std::vector<std::future<std::optional<ImageProperties>>> answers;
    for (int i = 0; i < 16; ++i) {
        answers.push_back(std::async(std::launch::async, readImageProperties, file));
    }
    const auto alone = readImageProperties(file);
    ASSERT_TRUE(alone);
    for (auto& answer : answers) EXPECT_EQ(answer.get(), alone);
}

TEST(ImagePropertiesSamples, PositionsAndDatesAreRead) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    const auto properties = readImageProperties(sampleMedia() / "metadata" / "DSCN0010.jpg");
    ASSERT_TRUE(properties);
    // 43 degrees 28 minutes 2.814 seconds, 11 degrees 53 minutes 6.456 seconds.
    const json& gps = properties->at(property::gpsGroup);
    EXPECT_NEAR(gps.at(property::gpsLatitude).get<double>(), 43.467448, positionTolerance);
    EXPECT_EQ(gps.at(property::gpsLatitudeRef), "N");
    EXPECT_NEAR(gps.at(property::gpsLongitude).get<double>(), 11.885127, positionTolerance);
    EXPECT_EQ(gps.at(property::gpsLongitudeRef), "E");
    EXPECT_EQ(properties->at(property::exifGroup).at(property::exifDateTimeOriginal),
              "2008:10:22 16:28:39");
    EXPECT_EQ(properties->at(property::tiffGroup).at(property::tiffDateTime),
              "2008:11:01 21:15:07");
}

TEST(ImagePropertiesSamples, AnEmptyPositionIsNoPosition) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    const auto properties = readImageProperties(sampleMedia() / "metadata" / "empty_gps.jpg");
    ASSERT_TRUE(properties);
    EXPECT_FALSE(properties->at(property::gpsGroup).contains(property::gpsLatitude));
    EXPECT_FALSE(properties->at(property::gpsGroup).contains(property::gpsLongitude));
}

TEST(ImagePropertiesSamples, EveryRawHeadTellsItsDate) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    for (const auto& entry : fs::directory_iterator(sampleMedia() / "raw")) {
        const auto properties = readImageProperties(entry.path());
        ASSERT_TRUE(properties) << entry.path();
        EXPECT_TRUE(properties->at(property::exifGroup).contains(property::exifDateTimeOriginal))
            << entry.path();
    }
}

TEST(ImagePropertiesSamples, NoFileCrashesOrSpeaks) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    ::testing::internal::CaptureStderr();
    for (const auto& entry : fs::recursive_directory_iterator(sampleMedia())) {
        const auto properties = readImageProperties(entry.path());
        EXPECT_NO_THROW(properties.value_or(json()).dump()) << entry.path();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace ornivo::testing
