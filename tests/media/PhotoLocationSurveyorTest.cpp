#include "media/PhotoLocationSurveyor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using PhotoLocationSurveyor::survey;

constexpr Exif inSydney{.position = std::pair(-33.9, 151.2)};

class PhotoLocationSurveyorTest : public ::testing::Test {
protected:
    /// A list of so many files, of which those for which `isLocated` have a position and the
    /// others aren't there.
    std::vector<fs::path> files(int count, const std::function<bool(int)>& isLocated) const {
        std::vector<fs::path> list;
        for (int i = 0; i < count; ++i) list.push_back(isLocated(i) ? located_ : folder_ / "none");
        return list;
    }

    /// How many of a list's files are found to have a position if these have one.
    int foundAmong(int count, const std::function<bool(int)>& isLocated) const {
        return survey(files(count, isLocated)).withLocation;
    }

    const TempFolder folder_;
    const fs::path located_ = writeJpeg(folder_ / "located.jpg", 16, 16, {.exif = inSydney});
};

bool always(int) {
    return true;
}

TEST_F(PhotoLocationSurveyorTest, AnEmptyListGivesZeros) {
    const auto result = survey({});
    EXPECT_EQ(result, PhotoLocationSurvey(0, 0, 0));
    EXPECT_FALSE(result.foundNone());
    EXPECT_FALSE(result.isPartial());
}

TEST_F(PhotoLocationSurveyorTest, TenFilesAreAllChecked) {
    EXPECT_EQ(survey(files(10, always)), PhotoLocationSurvey(10, 10, 10));
    EXPECT_EQ(foundAmong(10, [](int i) { return i == 9; }), 1);
}

TEST_F(PhotoLocationSurveyorTest, SixtyFilesAreAllChecked) {
    EXPECT_EQ(survey(files(60, always)), PhotoLocationSurvey(60, 60, 60));
}

TEST_F(PhotoLocationSurveyorTest, Of119FilesTheFirstSixtyAreChecked) {
    const auto result = survey(files(119, [](int i) { return i < 60; }));
    EXPECT_EQ(result, PhotoLocationSurvey(60, 60, 119));
    EXPECT_TRUE(result.isPartial());
    EXPECT_EQ(foundAmong(119, [](int i) { return i >= 60; }), 0);
}

TEST_F(PhotoLocationSurveyorTest, Of120FilesEverySecondIsChecked) {
    EXPECT_EQ(survey(files(120, [](int i) { return i % 2 == 0; })),
              PhotoLocationSurvey(60, 60, 120));
    EXPECT_EQ(foundAmong(120, [](int i) { return i == 118; }), 1);
}

TEST_F(PhotoLocationSurveyorTest, Of600FilesEveryTenthIsChecked) {
    EXPECT_EQ(survey(files(600, [](int i) { return i % 10 == 0; })),
              PhotoLocationSurvey(60, 60, 600));
    EXPECT_EQ(foundAmong(600, [](int i) { return i % 10 != 0; }), 0);
}

TEST_F(PhotoLocationSurveyorTest, ALimitOfItsOwnSpacesTheSample) {
    EXPECT_EQ(survey(files(10, [](int i) { return i % 3 == 0; }), 3),
              PhotoLocationSurvey(3, 3, 10));
    EXPECT_EQ(survey(files(10, [](int i) { return i == 0; }), 1), PhotoLocationSurvey(1, 1, 10));
}

TEST_F(PhotoLocationSurveyorTest, ALimitOfZeroChecksNothing) {
    for (const int limit : {0, -1}) {
        const auto result = survey(files(10, always), limit);
        EXPECT_EQ(result, PhotoLocationSurvey(0, 0, 10));
        EXPECT_FALSE(result.foundNone());
        EXPECT_TRUE(result.isPartial());
    }
}

TEST_F(PhotoLocationSurveyorTest, FilesThatCannotBeOpenedCountAsChecked) {
    const std::vector<fs::path> list{folder_ / "none.jpg",
                                     folder_.path(),
                                     writeFile(folder_ / "junk.jpg", "no picture"),
                                     writeFile(folder_ / "empty.jpg", ""),
                                     writeFile(folder_ / "clip.mp4", "no picture"),
                                     located_};
    EXPECT_EQ(survey(list), PhotoLocationSurvey(6, 1));
}

TEST_F(PhotoLocationSurveyorTest, APhotographWithoutAPositionIsNotCounted) {
    const auto plain = writeJpeg(folder_ / "plain.jpg", 16, 16);
    const auto result = survey(std::vector{plain});
    EXPECT_EQ(result, PhotoLocationSurvey(1, 0));
    EXPECT_TRUE(result.foundNone());
}

TEST_F(PhotoLocationSurveyorTest, AGpsGroupWithoutUsableCoordinatesIsNotCounted) {
    TiffDirectory onlyLatitude;
    onlyLatitude.directory(
        tag::gpsDirectory,
        TiffDirectory().ascii(tag::gpsLatitudeRef, "N").rationals(tag::gpsLatitude, {{51, 1}}));
    TiffDirectory beyondThePole;
    beyondThePole.directory(tag::gpsDirectory, TiffDirectory()
                                                   .ascii(tag::gpsLatitudeRef, "N")
                                                   .rationals(tag::gpsLatitude, {{91, 1}})
                                                   .ascii(tag::gpsLongitudeRef, "E")
                                                   .rationals(tag::gpsLongitude, {{1, 1}}));
    const std::vector list{writeJpegWithTags(folder_ / "a.jpg", 16, 16, onlyLatitude),
                           writeJpegWithTags(folder_ / "b.jpg", 16, 16, beyondThePole)};
    EXPECT_EQ(survey(list), PhotoLocationSurvey(2, 0));
}

TEST_F(PhotoLocationSurveyorTest, RawFilesTellTheirPosition) {
    const auto raw = writeDng(folder_ / "a.dng", filled(320, 200), {.exif = inSydney});
    EXPECT_EQ(survey(std::vector{raw}), PhotoLocationSurvey(1, 1));
}

/// What this process has read from files so far; absent where the system doesn't count.
std::optional<long long> bytesRead() {
    std::ifstream counts("/proc/self/io");
    std::string name;
    long long bytes = 0;
    if (counts >> name >> bytes && name == "rchar:") return bytes;
    return std::nullopt;
}

TEST_F(PhotoLocationSurveyorTest, SixtyPhotographsAreReadNoFurtherThanTheirHeaders) {
    if (!bytesRead()) GTEST_SKIP() << "this system doesn't count what a process reads";
    // A tail as long as a camera's picture; only headers lie in front of it.
    constexpr std::uintmax_t length = 30'000'000;
    constexpr long long mostOfAFile = 100'000;
    fs::resize_file(located_, length);
    const auto list = files(60, always);
    survey(std::span(list).first(1));

    const long long before = *bytesRead();
    EXPECT_EQ(survey(list), PhotoLocationSurvey(60, 60));
    EXPECT_LT(*bytesRead() - before, 60 * mostOfAFile);
}

}  // namespace
}  // namespace ornivo
