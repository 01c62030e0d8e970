#include "platform/EmbeddedJpeg.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Pictures.h"

namespace ornivo::testing {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes bytesIn(const std::string& text) {
    return {text.begin(), text.end()};
}

std::optional<EmbeddedJpeg> headerOf(const std::string& jpeg) {
    const Bytes bytes = bytesIn("before" + jpeg + "behind");
    return readEmbeddedJpeg(MemoryBytes(bytes), {6, jpeg.size()});
}

/// The same JPEG under another kind of frame, such as 0xC3 of a sensor's data.
std::string withFrame(std::string jpeg, char marker) {
    const auto at = jpeg.find("\xFF\xC0");
    jpeg[at + 1] = marker;
    return jpeg;
}

TEST(EmbeddedJpeg, TheHeaderTellsTheSize) {
    for (const JpegKind kind : {JpegKind::colour, JpegKind::progressive, JpegKind::grey}) {
        const auto jpeg = headerOf(jpegOf(filled(123, 45), {.kind = kind}));
        ASSERT_TRUE(jpeg);
        EXPECT_EQ(jpeg->size, (PixelSize{123, 45}));
        EXPECT_EQ(jpeg->range.offset, 6U);
        EXPECT_EQ(jpeg->colours, ColourSpace::unknown);
        EXPECT_EQ(jpeg->orientation, 0U);
    }
}

TEST(EmbeddedJpeg, ItsOwnMetadataAreTaken) {
    EXPECT_EQ(headerOf(jpegOf(filled(64, 48), {.exif = {.orientation = 6}}))->orientation, 6U);
}

TEST(EmbeddedJpeg, FillBytesBeforeAMarkerAreNoFault) {
    std::string jpeg = jpegOf(filled(64, 48));
    jpeg.insert(2, "\xFF\xFF\xFF");
    EXPECT_TRUE(headerOf(jpeg));
}

TEST(EmbeddedJpeg, ASensorsDataAreNoPicture) {
    const std::string jpeg = jpegOf(filled(64, 48));
    EXPECT_FALSE(headerOf(withFrame(jpeg, '\xC3')));
    EXPECT_FALSE(headerOf(withFrame(jpeg, '\xC9')));
    EXPECT_FALSE(headerOf(jpegOf(filled(64, 48), {.kind = JpegKind::cmyk})));
    std::string deep = jpeg;
    deep[jpeg.find("\xFF\xC0") + 4] = 12;
    EXPECT_FALSE(headerOf(deep));
}

TEST(EmbeddedJpeg, WhatIsNoJpegIsAbsent) {
    EXPECT_FALSE(headerOf(""));
    EXPECT_FALSE(headerOf("\xFF\xD8"));
    EXPECT_FALSE(headerOf("\xFF\xD8\xFF"));
    EXPECT_FALSE(headerOf(std::string(400, '\xFF')));
    EXPECT_FALSE(headerOf("These are words, and no picture at all.\n"));
    const std::string jpeg = jpegOf(filled(64, 48));
    EXPECT_FALSE(headerOf(jpeg.substr(0, jpeg.find("\xFF\xC0"))));
}

TEST(EmbeddedJpeg, ARangeThatIsNotAllThereIsAbsent) {
    const Bytes bytes = bytesIn(jpegOf(filled(64, 48)));
    const MemoryBytes source(bytes);
    EXPECT_TRUE(readEmbeddedJpeg(source, {0, bytes.size()}));
    EXPECT_FALSE(readEmbeddedJpeg(source, {0, bytes.size() + 1}));
    EXPECT_FALSE(readEmbeddedJpeg(source, {bytes.size(), 1}));
    EXPECT_FALSE(readEmbeddedJpeg(source, {~std::uint64_t{0}, ~std::uint64_t{0}}));
}

}  // namespace
}  // namespace ornivo::testing
