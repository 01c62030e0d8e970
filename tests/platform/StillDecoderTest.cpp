#include "platform/StillDecoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <future>
#include <string>
#include <vector>

#include "platform/BitmapTransforms.h"
#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;

constexpr int tolerance = 4;

PixelSize sizeOf(const std::optional<DecodedStill>& still) {
    return still ? PixelSize{still->bitmap.width(), still->bitmap.height()} : PixelSize{0, 0};
}

void expectQuarters(const std::optional<DecodedStill>& still) {
    ASSERT_TRUE(still);
    const Bitmap& bitmap = still->bitmap;
    const int right = bitmap.width() * 3 / 4;
    const int bottom = bitmap.height() * 3 / 4;
    EXPECT_TRUE(isNear(at(bitmap, right / 3, bottom / 3), {255, 0, 0}, tolerance));
    EXPECT_TRUE(isNear(at(bitmap, right, bottom / 3), {0, 255, 0}, tolerance));
    EXPECT_TRUE(isNear(at(bitmap, right / 3, bottom), {0, 0, 255}, tolerance));
    EXPECT_TRUE(isNear(at(bitmap, right, bottom), {255, 255, 255}, tolerance));
}

void expectMiddle(const std::optional<DecodedStill>& still, Colour expected, int within) {
    ASSERT_TRUE(still);
    const Bitmap& bitmap = still->bitmap;
    const Colour found = at(bitmap, bitmap.width() / 2, bitmap.height() / 2);
    EXPECT_TRUE(isNear(found, expected, within)) << found;
}

TEST(StillDecoder, EveryFormatDecodesAsItIsStored) {
    const TempFolder folder;
    const Bitmap picture = quarters(120, 80);
    const std::vector<fs::path> files{
        writeJpeg(folder / "colour.jpg", picture),
        writeJpeg(folder / "progressive.jpg", picture, {.kind = JpegKind::progressive}),
        writePng(folder / "8.png", picture),
        writePng(folder / "16.png", picture, PngKind::sixteenBit),
        writePng(folder / "palette.png", picture, PngKind::palette),
        writeTiff(folder / "8.tif", picture),
        writeTiff(folder / "16.tif", picture, TiffKind::sixteenBit),
        writeTiffInPlanes(folder / "planes.tif", picture),
        writeWebp(folder / "picture.webp", picture),
    };
    for (const auto& file : files) {
        SCOPED_TRACE(file);
        const auto still = decodeStill(file, 640);
        EXPECT_EQ(sizeOf(still), (PixelSize{120, 80}));
        expectQuarters(still);
        EXPECT_FALSE(still->isUpright);
        const auto reduced = decodeStill(file, 60);
        EXPECT_EQ(sizeOf(reduced), (PixelSize{60, 40}));
        expectQuarters(reduced);
    }
}

TEST(StillDecoder, AHeicComesUpright) {
    if (!canWriteHeic()) GTEST_SKIP() << "no HEVC encoder here";
    const TempFolder folder;
    const auto still = decodeStill(writeHeic(folder / "a.heic", quarters(128, 96)), 64);
    EXPECT_EQ(sizeOf(still), (PixelSize{64, 48}));
    expectQuarters(still);
    EXPECT_TRUE(still->isUpright);
}

TEST(StillDecoder, TheFormatIsToldByTheContents) {
    const TempFolder folder;
    expectQuarters(decodeStill(writePng(folder / "a.jpg", quarters(64, 64)), 640));
    expectQuarters(decodeStill(writeJpeg(folder / "a.tiff", quarters(64, 64)), 640));
}

TEST(StillDecoder, OddNamesAreTakenAsTheyStand) {
    const TempFolder folder;
    for (const char* name :
         {"a[shrink=8].jpg", "a.jpg[shrink=8]", "\xFF\xFE.jpg", "-", "a:b.jpg"}) {
        EXPECT_EQ(sizeOf(decodeStill(writeJpeg(folder / name, 64, 48), 640)), (PixelSize{64, 48}))
            << name;
    }
}

TEST(StillDecoder, GreyBecomesThreeEqualChannels) {
    const TempFolder folder;
    const auto file =
        writeJpeg(folder / "a.jpg", 64, 64, {.kind = JpegKind::grey, .colour = {100, 100, 100}});
    expectMiddle(decodeStill(file, 640), {100, 100, 100}, 1);
}

TEST(StillDecoder, CmykIsConverted) {
    const TempFolder folder;
    constexpr int printTolerance = 30;
    for (const Colour colour : {Colour{200, 40, 30}, Colour{40, 120, 60}, Colour{230, 230, 230}}) {
        const auto file =
            writeJpeg(folder / "a.jpg", 64, 64, {.kind = JpegKind::cmyk, .colour = colour});
        expectMiddle(decodeStill(file, 640), colour, printTolerance);
        expectMiddle(decodeStill(file, 32), colour, printTolerance);
    }
}

TEST(StillDecoder, AColourProfileIsConvertedToSrgb) {
    const TempFolder folder;
    const Colour colour{200, 90, 40};
    const auto file =
        writeJpeg(folder / "a.jpg", 64, 64, {.kind = JpegKind::displayP3, .colour = colour});
    expectMiddle(decodeStill(file, 640), colour, tolerance);
}

TEST(StillDecoder, SixteenBitMidGreyReads128) {
    const TempFolder folder;
    expectMiddle(decodeStill(writePng(folder / "a.png", filled(64, 64), PngKind::sixteenBit), 32),
                 {128, 128, 128}, 1);
    expectMiddle(decodeStill(writeTiff(folder / "a.tif", filled(64, 64), TiffKind::sixteenBit), 32),
                 {128, 128, 128}, 1);
}

TEST(StillDecoder, TransparencyIsLaidOnBlack) {
    const TempFolder folder;
    const auto file =
        writePng(folder / "a.png", filled(64, 64, {200, 100, 50}), PngKind::halfTransparent);
    expectMiddle(decodeStill(file, 32), {100, 50, 25}, 1);
}

TEST(StillDecoder, ATransparentPrintIsLaidOnBlackToo) {
    const TempFolder folder;
    constexpr std::uint32_t side = 16;
    const auto tiff = TiffDirectory()
                          .longs(256, {side})
                          .longs(257, {side})
                          .shorts(258, {8, 8, 8, 8, 8})
                          .shorts(259, {1})
                          .shorts(262, {5})
                          .shorts(277, {5})
                          .longs(278, {side})
                          .shorts(338, {2})
                          .strip(std::string(std::size_t{side} * side * 5, '\0'));
    expectMiddle(decodeStill(writeFile(folder / "a.tif", tiff.file()), 640), {0, 0, 0}, 0);
}

TEST(StillDecoder, WithoutALimitTheImageComesAtItsFullSize) {
    const TempFolder folder;
    const auto file = writeJpeg(folder / "a.jpg", 1500, 1000);
    EXPECT_EQ(sizeOf(decodeStill(file, std::nullopt)), (PixelSize{1500, 1000}));
}

TEST(StillDecoder, OneByOneDecodes) {
    const TempFolder folder;
    EXPECT_EQ(sizeOf(decodeStill(writeJpeg(folder / "a.jpg", 1, 1), 640)), (PixelSize{1, 1}));
    EXPECT_EQ(sizeOf(decodeStill(writePng(folder / "a.png", filled(1, 1)), 640)),
              (PixelSize{1, 1}));
}

TEST(StillDecoder, ALongThinImageKeepsAnEdge) {
    const TempFolder folder;
    EXPECT_EQ(sizeOf(decodeStill(writeJpeg(folder / "a.jpg", 60000, 10), 640)),
              (PixelSize{640, 1}));
    EXPECT_EQ(sizeOf(decodeStill(writePng(folder / "a.png", filled(10, 20000)), 640)),
              (PixelSize{1, 640}));
}

/// How well the second bitmap stands for the first, in decibels.
double signalToNoise(const Bitmap& expected, const Bitmap& found) {
    double squares = 0;
    for (std::size_t i = 0; i < expected.pixels().size(); ++i) {
        squares += std::pow(expected.pixels()[i] - found.pixels()[i], 2);
    }
    const double mean = squares / static_cast<double>(expected.pixels().size());
    return 10 * std::log10(255 * 255 / mean);
}

TEST(StillDecoder, AReducedJpegIsCloseToTheFullRoad) {
    const TempFolder folder;
    // Waves of three to five pixels of the reduced picture, as fine as its details can be.
    const auto waves = [](int x, int y) {
        const double wave = std::sin(x / 4.0) + std::cos((x + y) / 6.0);
        const auto value = static_cast<std::uint8_t>(128 + 50 * wave);
        return Colour{value, value, static_cast<std::uint8_t>(255 - value)};
    };
    const auto file = writeJpeg(folder / "a.jpg", painted(1400, 1000, waves));
    const auto reduced = decodeStill(file, 160);
    const auto full = decodeStill(file, std::nullopt);
    ASSERT_TRUE(reduced && full);
    EXPECT_GT(signalToNoise(downsampled(full->bitmap, 160), reduced->bitmap), 42);
}

TEST(StillDecoder, AFileCutShortIsAbsent) {
    const TempFolder folder;
    const auto noisy = painted(300, 200, [](int x, int y) {
        return Colour{static_cast<std::uint8_t>(x * 31 ^ y * 17), static_cast<std::uint8_t>(x * y),
                      static_cast<std::uint8_t>(x + y * 3)};
    });
    std::vector<fs::path> files{
        writeJpeg(folder / "a.jpg", noisy),
        writeJpeg(folder / "progressive.jpg", noisy, {.kind = JpegKind::progressive}),
        writePng(folder / "a.png", noisy),
        writeTiff(folder / "a.tif", noisy),
        writeTiffInPlanes(folder / "planes.tif", noisy),
        writeWebp(folder / "a.webp", noisy),
    };
    if (canWriteHeic()) files.push_back(writeHeic(folder / "a.heic", noisy));
    for (const auto& file : files) {
        ASSERT_TRUE(decodeStill(file, 64)) << file;
        fs::resize_file(file, fs::file_size(file) * 6 / 10);
        EXPECT_FALSE(decodeStill(file, 64)) << file;
        EXPECT_FALSE(decodeStill(file, std::nullopt)) << file;
    }
}

TEST(StillDecoder, WhatIsNoPictureIsAbsent) {
    const TempFolder folder;
    EXPECT_FALSE(decodeStill(writeFile(folder / "empty.jpg", ""), 640));
    EXPECT_FALSE(decodeStill(writeFile(folder / "text.jpg", "These are words.\n"), 640));
    EXPECT_FALSE(decodeStill(folder / "missing.jpg", 640));
    EXPECT_FALSE(decodeStill(folder.path(), 640));
}

TEST(StillDecoder, FormatsOfNoCameraAreAbsent) {
    const TempFolder folder;
    const std::array<std::string, 4> contents{
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"></svg>",
        "P3 1 1 255 1 2 3\n",
        "GIF89a\1\0\1\0\x80\0\0\0\0\0\xFF\xFF\xFF!\xF9\4\1\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;",
        "%PDF-1.4\n1 0 obj<</Type/Catalog>>endobj\n"};
    for (const auto& text : contents) {
        EXPECT_FALSE(decodeStill(writeFile(folder / "a.jpg", text), 640)) << text;
    }
}

/// A grey TIFF of 30000 pixels across, whose rows are all the same part of the file itself.
std::string boundlessTiff(std::uint32_t height) {
    constexpr std::uint32_t width = 30000;
    return TiffDirectory()
        .longs(256, {width})
        .longs(257, {height})
        .shorts(258, {8})
        .shorts(259, {1})
        .shorts(262, {1})
        .longs(273, std::vector<std::uint32_t>(height, 8))
        .shorts(277, {1})
        .longs(278, {1})
        .longs(279, std::vector<std::uint32_t>(height, width))
        .file();
}

TEST(StillDecoder, APictureLargerThanAnyCameraMakesIsAbsent) {
    const TempFolder folder;
    EXPECT_EQ(sizeOf(decodeStill(writeFile(folder / "a.tif", boundlessTiff(5000)), 640)),
              (PixelSize{640, 107}));
    EXPECT_FALSE(decodeStill(writeFile(folder / "b.tif", boundlessTiff(17000)), 640));
}

TEST(StillDecoder, AnOrientationIsNotApplied) {
    const TempFolder folder;
    for (const std::uint16_t orientation : std::array<std::uint16_t, 3>{2, 3, 6}) {
        const Bitmap picture = quarters(120, 80);
        expectQuarters(decodeStill(writeTiffInPlanes(folder / "a.tif", picture, orientation), 60));
        const JpegOptions turned{.exif = {.orientation = orientation}};
        expectQuarters(decodeStill(writeJpeg(folder / "a.jpg", picture, turned), 60));
    }
}

std::vector<std::uint8_t> bytesIn(const std::string& text) {
    return {text.begin(), text.end()};
}

TEST(StillDecoder, AJpegInMemoryDecodesAsOneInAFile) {
    const TempFolder folder;
    const auto file =
        writeJpeg(folder / "a.jpg", quarters(3000, 2000), {.exif = {.orientation = 6}});
    const auto inFile = decodeStill(file, 640);
    const auto inMemory = decodeJpeg(bytesIn(readFile(file)), 640, {});
    ASSERT_TRUE(inFile && inMemory);
    EXPECT_TRUE(std::ranges::equal(inFile->bitmap.pixels(), inMemory->pixels()));
    EXPECT_EQ(inMemory->width(), 640);
}

TEST(StillDecoder, AJpegInMemoryThatIsCutShortIsAbsent) {
    const auto whole = bytesIn(jpegOf(quarters(900, 600)));
    for (const std::size_t kept : {std::size_t{0}, std::size_t{2}, whole.size() / 2}) {
        EXPECT_FALSE(decodeJpeg(std::span(whole).first(kept), 640, {})) << kept;
    }
    EXPECT_FALSE(decodeJpeg(bytesIn("These are words.\n"), 640, {}));
}

TEST(StillDecoder, AProfileThatIsNoneIsPassedOver) {
    const auto picture =
        decodeJpeg(bytesIn(jpegOf(quarters(900, 600))), 640, bytesIn("no profile"));
    ASSERT_TRUE(picture);
    EXPECT_TRUE(isNear(at(*picture, 10, 10), {255, 0, 0}, tolerance));
}

TEST(StillDecoder, SeveralThreadsGetWhatOneGets) {
    const TempFolder folder;
    const std::vector<fs::path> files{writeJpeg(folder / "a.jpg", quarters(900, 600)),
                                      writePng(folder / "a.png", quarters(500, 400)),
                                      writeTiffInPlanes(folder / "a.tif", quarters(100, 70)),
                                      writeWebp(folder / "a.webp", quarters(300, 200))};
    std::vector<std::future<std::optional<DecodedStill>>> answers;
    for (int round = 0; round < 4; ++round) {
        for (const auto& file : files) {
            answers.push_back(std::async(std::launch::async, decodeStill, file, 90));
        }
    }
    for (std::size_t i = 0; i < answers.size(); ++i) {
        const auto alone = decodeStill(files[i % files.size()], 90);
        const auto together = answers[i].get();
        ASSERT_TRUE(alone && together);
        EXPECT_TRUE(std::ranges::equal(alone->bitmap.pixels(), together->bitmap.pixels()));
    }
}

TEST(StillDecoderSamples, EveryPictureDecodes) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    for (const auto& entry : fs::directory_iterator(sampleMedia() / "formats")) {
        const auto still = decodeStill(entry.path(), 640);
        ASSERT_TRUE(still) << entry.path();
        EXPECT_LE(std::max(still->bitmap.width(), still->bitmap.height()), 640);
        EXPECT_EQ(still->isUpright, entry.path().extension() == ".heic");
    }
}

TEST(StillDecoderSamples, SixteenBitTiffsAgreeHoweverTheyAreStored) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    const auto formats = sampleMedia() / "formats";
    const auto plain = decodeStill(formats / "tiff_16bit_RGB.tiff", 640);
    const auto planar = decodeStill(formats / "tiff_tiled_planar_16bit_RGB.tiff", 640);
    ASSERT_TRUE(plain && planar);
    ASSERT_EQ(sizeOf(plain), sizeOf(planar));
    for (int y = 0; y < plain->bitmap.height(); ++y) {
        for (int x = 0; x < plain->bitmap.width(); ++x) {
            ASSERT_TRUE(isNear(at(plain->bitmap, x, y), at(planar->bitmap, x, y), 1));
        }
    }
}

TEST(StillDecoderSamples, NoBrokenFileCrashesOrSpeaks) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    ::testing::internal::CaptureStderr();
    for (const auto& entry : fs::directory_iterator(sampleMedia() / "broken")) {
        const auto still = decodeStill(entry.path(), 640);
        const auto [width, height] = sizeOf(still);
        EXPECT_LE(std::max(width, height), 640) << entry.path();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace ornivo::testing
