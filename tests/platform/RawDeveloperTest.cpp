#include "platform/RawDeveloper.h"

#include <gtest/gtest.h>

#include <array>
#include <future>
#include <string>
#include <utility>
#include <vector>

#include "platform/BitmapTransforms.h"
#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;

constexpr int tolerance = 3;

PixelSize sizeOf(const std::optional<Bitmap>& bitmap) {
    return bitmap ? PixelSize{bitmap->width(), bitmap->height()} : PixelSize{0, 0};
}

TEST(RawDeveloper, ColoursComeOutAsTheCameraSawThem) {
    const TempFolder folder;
    const Colour colour{128, 64, 200};
    const auto scene = painted(256, 192, [colour](int x, int y) {
        return x < 32 && y < 32 ? Colour{255, 255, 255} : colour;
    });
    const auto file = writeDng(folder / "a.dng", scene);
    // The first is demosaiced, the second taken at half the sensor's size.
    for (const int maxDimension : {640, 64}) {
        const auto bitmap = developRaw(file, maxDimension);
        ASSERT_TRUE(bitmap);
        const Colour found = at(*bitmap, bitmap->width() * 3 / 4, bitmap->height() * 3 / 4);
        EXPECT_TRUE(isNear(found, colour, tolerance)) << found;
    }
}

TEST(RawDeveloper, TheLongerSideKeepsToTheLimit) {
    const TempFolder folder;
    const auto file = writeDng(folder / "a.dng", quarters(256, 192));
    EXPECT_EQ(sizeOf(developRaw(file, 200)), (PixelSize{200, 150}));
    EXPECT_EQ(sizeOf(developRaw(file, 128)), (PixelSize{128, 96}));
    EXPECT_EQ(sizeOf(developRaw(file, 50)), (PixelSize{50, 38}));
}

TEST(RawDeveloper, ASmallerPictureIsNotEnlarged) {
    const TempFolder folder;
    const auto file = writeDng(folder / "a.dng", quarters(256, 192));
    EXPECT_EQ(sizeOf(developRaw(file, 640)), (PixelSize{256, 192}));
}

TEST(RawDeveloper, EveryOrientationComesUpright) {
    const TempFolder folder;
    const Bitmap stored = quarters(256, 192);
    for (const std::uint16_t orientation : std::array<std::uint16_t, 4>{1, 3, 6, 8}) {
        const auto file =
            writeDng(folder / "a.dng", stored, {.exif = {.orientation = orientation}});
        const auto bitmap = developRaw(file, 64);
        const Bitmap expected = upright(stored, orientation);
        ASSERT_EQ(sizeOf(bitmap), reducedSize({expected.width(), expected.height()}, 64));
        for (const auto& [x, y] : {std::pair{1, 1}, {3, 1}, {1, 3}, {3, 3}}) {
            const Colour found = at(*bitmap, bitmap->width() * x / 4, bitmap->height() * y / 4);
            const Colour wanted = at(expected, expected.width() * x / 4, expected.height() * y / 4);
            EXPECT_TRUE(isNear(found, wanted, tolerance)) << orientation << " " << found;
        }
    }
}

TEST(RawDeveloper, SensorDataCutShortIsAbsent) {
    const TempFolder folder;
    for (const double kept : {0.0, 0.1, 0.5, 0.9, 0.99}) {
        const auto file = writeDng(folder / "a.dng", quarters(256, 192), {.dataKept = kept});
        EXPECT_FALSE(developRaw(file, 64)) << kept;
    }
}

TEST(RawDeveloper, ACameraWhoseColoursNobodyKnowsIsAbsent) {
    const TempFolder folder;
    EXPECT_FALSE(
        developRaw(writeDng(folder / "a.dng", quarters(256, 192), {.tellsColours = false}), 64));
}

TEST(RawDeveloper, ACameraThatTheDeveloperDoesNotKnowIsAbsent) {
    const TempFolder folder;
    const auto developed = [&](const std::string& make, const std::string& model) {
        const DngOptions options{.camera = std::pair(make, model)};
        return developRaw(writeDng(folder / "a.nef", quarters(256, 192), options), 64);
    };
    EXPECT_TRUE(developed("Canon", "Canon EOS R"));
    // Sold under other names too, which the developer's list has behind a comma.
    EXPECT_TRUE(developed("Panasonic", "DMC-ZS40"));
    // Their names begin with that of one that is known.
    EXPECT_FALSE(developed("Canon", "Canon EOS R7"));
    EXPECT_FALSE(developed("Canon", "Canon EOS R999"));
    EXPECT_FALSE(developed("Ornivo", "Test Camera"));
}

TEST(RawDeveloper, WhatIsNoRawFileIsAbsent) {
    const TempFolder folder;
    EXPECT_FALSE(developRaw(writeJpeg(folder / "a.dng", 256, 192), 64));
    EXPECT_FALSE(developRaw(writeFile(folder / "empty.dng", ""), 64));
    EXPECT_FALSE(developRaw(writeFile(folder / "text.dng", "These are words.\n"), 64));
    EXPECT_FALSE(developRaw(folder / "missing.dng", 64));
    EXPECT_FALSE(developRaw(folder.path(), 64));
}

TEST(RawDeveloper, SeveralThreadsGetWhatOneGets) {
    const TempFolder folder;
    const auto file = writeDng(folder / "a.dng", quarters(256, 192));
    std::vector<std::future<std::optional<Bitmap>>> answers;
    for (int i = 0; i < 6; ++i) {
        answers.push_back(std::async(std::launch::async, developRaw, file, 64));
    }
    const auto alone = developRaw(file, 64);
    ASSERT_TRUE(alone);
    for (auto& answer : answers) {
        const auto together = answer.get();
        ASSERT_TRUE(together);
        EXPECT_TRUE(std::ranges::equal(alone->pixels(), together->pixels()));
    }
}

TEST(RawDeveloperSamples, FilesWithoutTheirSensorDataAreAbsentWithoutAWord) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    ::testing::internal::CaptureStderr();
    for (const auto& entry : fs::directory_iterator(sampleMedia() / "raw")) {
        EXPECT_FALSE(developRaw(entry.path(), 640)) << entry.path();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(RawDeveloperSamples, NoBrokenFileCrashesOrSpeaks) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    ::testing::internal::CaptureStderr();
    for (const auto& entry : fs::directory_iterator(sampleMedia() / "broken")) {
        EXPECT_FALSE(developRaw(entry.path(), 640)) << entry.path();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace ornivo::testing
