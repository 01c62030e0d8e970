#include "media/PhotoDate.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::sampleMedia;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;

ImageProperties exif(const nlohmann::json& value) {
    return {{property::exifGroup, {{property::exifDateTimeOriginal, value}}}};
}

ImageProperties tiff(const nlohmann::json& value) {
    return {{property::tiffGroup, {{property::tiffDateTime, value}}}};
}

TEST(PhotoDate, ACaptureTextGivesADayAndASecond) {
    const auto properties = exif("2024:05:17 08:12:33");
    EXPECT_EQ(PhotoDate::dateString(properties), "2024-05-17");
    EXPECT_EQ(PhotoDate::captureSecond(properties), 1715933553);
}

TEST(PhotoDate, SecondsAreCountedFrom1970) {
    EXPECT_EQ(PhotoDate::captureSecond(exif("1970:01:01 00:00:00")), 0);
    EXPECT_EQ(PhotoDate::captureSecond(exif("1969:12:31 23:59:59")), -1);
}

TEST(PhotoDate, LeapYearsFollowTheGregorianRule) {
    constexpr std::int64_t day = 86400;
    const auto second = [](const std::string& date) {
        return PhotoDate::captureSecond(exif(date + " 00:00:00")).value();
    };
    EXPECT_EQ(second("2000:03:01") - second("2000:02:28"), 2 * day);
    EXPECT_EQ(second("1900:03:01") - second("1900:02:28"), day);
    EXPECT_EQ(second("2024:03:01") - second("2024:02:28"), 2 * day);
    EXPECT_EQ(second("2023:03:01") - second("2023:02:28"), day);
    EXPECT_EQ(second("2024:01:01") - second("2023:12:31"), day);
    EXPECT_EQ(second("0000:03:01"), -719468 * day);
    EXPECT_EQ(second("0000:01:01"), -719528 * day);
    EXPECT_EQ(second("-001:12:31"), -719529 * day);
}

TEST(PhotoDate, ADayAloneGivesADayAndNoSecond) {
    const auto properties = exif("2024:05:17");
    EXPECT_EQ(PhotoDate::dateString(properties), "2024-05-17");
    EXPECT_EQ(PhotoDate::captureSecond(properties), std::nullopt);
}

TEST(PhotoDate, AShorterTextGivesNothing) {
    EXPECT_EQ(PhotoDate::dateString(exif("2024:05:1")), std::nullopt);
    EXPECT_EQ(PhotoDate::dateString(exif("")), std::nullopt);
    EXPECT_EQ(PhotoDate::captureSecond(exif("2024:05:17 08:12:3")), std::nullopt);
}

TEST(PhotoDate, SeparatorsAreNeverLookedAt) {
    const auto properties = exif("2024-05-17 08:12:33");
    EXPECT_EQ(PhotoDate::dateString(properties), "2024-05-17");
    EXPECT_EQ(PhotoDate::captureSecond(properties), 1715933553);
    EXPECT_EQ(PhotoDate::captureSecond(exif("2024x05é17T08.12.33.500+02:00")), 1715933553);
}

TEST(PhotoDate, AMonthThatIsNoneGivesADayAndNoSecond) {
    const auto properties = exif("2024:13:01 00:00:00");
    EXPECT_EQ(PhotoDate::dateString(properties), "2024-13-01");
    EXPECT_EQ(PhotoDate::captureSecond(properties), std::nullopt);
}

TEST(PhotoDate, BlanksAreADayAsTheyStandAndNoSecond) {
    const auto properties = exif("    :  :     :  :  ");
    EXPECT_EQ(PhotoDate::dateString(properties), "    -  -  ");
    EXPECT_EQ(PhotoDate::captureSecond(properties), std::nullopt);
}

TEST(PhotoDate, ACamerasBlankDateIsADayAndNoSecond) {
    const auto properties = exif("0000:00:00 00:00:00");
    EXPECT_EQ(PhotoDate::dateString(properties), "0000-00-00");
    EXPECT_EQ(PhotoDate::captureSecond(properties), std::nullopt);
}

TEST(PhotoDate, EveryPartOfTheTimeHasItsRange) {
    for (const char* good : {"2024:01:01 00:00:00", "2024:12:31 23:59:60", "2024:02:31 00:00:00",
                             "2024:05:17 -0:00:00", "2024:+5:17 +8:12:33"}) {
        EXPECT_TRUE(PhotoDate::captureSecond(exif(good))) << good;
    }
    for (const char* bad : {"2024:00:01 00:00:00", "2024:01:00 00:00:00", "2024:01:32 00:00:00",
                            "2024:01:01 24:00:00", "2024:01:01 00:60:00", "2024:01:01 00:00:61",
                            "2024:-1:01 00:00:00", "2024:01:01 -1:00:00", "2024:01:01 00:-1:00",
                            "2024:01:01 00:00:-1", "2024:01:01 00:00: 1", "2024:01:01 00:00:1 ",
                            "2 24:01:01 00:00:00", "2024:01:01 00:00:xx", "2024:+-:01 00:00:00",
                            "+-24:01:01 00:00:00", "2024:\u0661\u0662:01 00:00:00"}) {
        EXPECT_EQ(PhotoDate::captureSecond(exif(bad)), std::nullopt) << bad;
    }
}

TEST(PhotoDate, TheLengthOfAMonthIsNotLookedAt) {
    EXPECT_EQ(PhotoDate::captureSecond(exif("2024:02:31 00:00:00")),
              PhotoDate::captureSecond(exif("2024:03:02 00:00:00")));
}

TEST(PhotoDate, WithoutAnEXIFDateTheTIFFDateCounts) {
    EXPECT_EQ(PhotoDate::dateString(tiff("2023:01:02 03:04:05")), "2023-01-02");
    auto both = tiff("2023:01:02 03:04:05");
    both.update(exif("2024:05:17 08:12:33"));
    EXPECT_EQ(PhotoDate::dateString(both), "2024-05-17");
    both[property::exifGroup] = "no group";
    EXPECT_EQ(PhotoDate::dateString(both), "2023-01-02");
    both[property::exifGroup] = nlohmann::json::object();
    EXPECT_EQ(PhotoDate::dateString(both), "2023-01-02");
}

TEST(PhotoDate, AnEXIFDateOfTheWrongTypeIsAbsentAndDoesNotFallThrough) {
    auto both = tiff("2023:01:02 03:04:05");
    both.update(exif(20240517));
    EXPECT_EQ(PhotoDate::dateString(both), std::nullopt);
    EXPECT_EQ(PhotoDate::captureSecond(both), std::nullopt);
}

TEST(PhotoDate, PropertiesWithoutADateGiveNothing) {
    EXPECT_EQ(PhotoDate::dateString(nlohmann::json::object()), std::nullopt);
    EXPECT_EQ(PhotoDate::dateString(nlohmann::json()), std::nullopt);
    EXPECT_EQ(PhotoDate::captureSecond(nlohmann::json::object()), std::nullopt);
}

/// The days below are reckoned in the time zone of this test.
class PhotoDateOfFile : public ::testing::Test {
protected:
    PhotoDateOfFile() {
        if (const char* const zone = getenv("TZ")) before_ = zone;
        setZone("UTC0");
    }
    ~PhotoDateOfFile() override { setZone(before_); }

    static void setZone(const std::optional<std::string>& zone) {
        zone ? setenv("TZ", zone->c_str(), 1) : unsetenv("TZ");
        tzset();
    }

    fs::path fileChangedAt(std::time_t second) {
        fs::path file = writeFile(folder_ / "a.jpg", "no picture");
        const timespec times[2] = {{0, UTIME_OMIT}, {second, 0}};
        EXPECT_EQ(utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
        return file;
    }

    static constexpr std::time_t newYear2001 = 978307200;
    static constexpr std::time_t may2024 = 1715933553;
    const TempFolder folder_;
    const std::shared_ptr<Files> files_ = Files::system();
    std::optional<std::string> before_;
};

TEST_F(PhotoDateOfFile, TheCaptureDayIsTakenAsItStands) {
    PhotoMetadata metadata;
    metadata.captureDate = "2020-02-30";
    EXPECT_EQ(PhotoDate::string(metadata, fileChangedAt(newYear2001), *files_, may2024),
              "2020-02-30");
}

TEST_F(PhotoDateOfFile, AFileWithoutMetadataHasItsModificationDay) {
    const fs::path file = fileChangedAt(newYear2001);
    EXPECT_EQ(PhotoDate::string(PhotoMetadata(), file, *files_, may2024), "2001-01-01");
    EXPECT_EQ(PhotoDate::string(file, *files_, may2024), "2001-01-01");
}

TEST_F(PhotoDateOfFile, AFileThatCannotBeAskedHasToday) {
    EXPECT_EQ(PhotoDate::string(PhotoMetadata(), folder_ / "gone.jpg", *files_, may2024),
              "2024-05-17");
    EXPECT_EQ(PhotoDate::string(folder_ / "gone.jpg", *files_, may2024), "2024-05-17");
}

TEST_F(PhotoDateOfFile, TheModificationDayIsThatOfTheSystemsTimeZone) {
    setZone("XST+8");
    EXPECT_EQ(PhotoDate::string(PhotoMetadata(), fileChangedAt(newYear2001), *files_, may2024),
              "2000-12-31");
}

TEST_F(PhotoDateOfFile, APhotographHasTheDayThatItsHeadersTell) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    EXPECT_EQ(PhotoDate::string(sampleMedia() / "metadata/DSCN0010.jpg", *files_, may2024),
              "2008-10-22");
}

}  // namespace
}  // namespace ornivo
