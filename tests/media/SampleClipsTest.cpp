// Clips of real cameras and telephones.

#include <gtest/gtest.h>

#include <string>

#include "media/VideoDecoder.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

struct Sample {
    const char* name;
    std::size_t frames;
    int width;
    int height;
    std::optional<std::string> day;
    std::optional<PhotoLocation> location;
};

std::ostream& operator<<(std::ostream& out, const Sample& sample) {
    return out << sample.name;
}

class SampleClips : public ::testing::TestWithParam<Sample> {};

TEST_P(SampleClips, GiveTheirFramesTheirDayAndTheirPosition) {
    if (sampleMedia().empty()) GTEST_SKIP() << "The sample clips are not beside the checkout.";
    const Sample& sample = GetParam();
    const auto clip = VideoDecoder::sampleFrames(sampleMedia() / "clips" / sample.name, 640);
    ASSERT_TRUE(clip);
    EXPECT_EQ(clip->frames.size(), sample.frames);
    EXPECT_EQ(clip->frames.front().width(), sample.width);
    EXPECT_EQ(clip->frames.front().height(), sample.height);
    EXPECT_EQ(clip->metadata.captureDate, sample.day);
    EXPECT_EQ(clip->metadata.location, sample.location);
}

INSTANTIATE_TEST_SUITE_P(
    VideoDecoder, SampleClips,
    ::testing::Values(
        Sample{"FLIR_Thermal.mp4", 11, 480, 640, "2021-05-16",
               PhotoLocation::make(34.0754, -118.2543)},
        Sample{"sample_640x360.mov", 12, 640, 360, std::nullopt, std::nullopt},
        Sample{"sample_mpeg4.mp4", 5, 190, 240, "2005-10-28", std::nullopt},
        Sample{"uuid540.mp4", 1, 640, 360, "2020-01-05", std::nullopt},
        Sample{"with-gps.mov", 4, 320, 568, "2019-07-24", PhotoLocation::make(32.0929, 34.8620)},
        Sample{"with-gps.mp4", 1, 640, 360, "2017-02-22", PhotoLocation::make(51.4169, -0.0806)},
        Sample{"xmp480qt.mov", 1, 640, 360, "2020-01-05", std::nullopt}));

TEST(SampleClipsTest, AClipOfWhichOnlyTheHeadersAreLeftGivesNothing) {
    if (sampleMedia().empty()) GTEST_SKIP() << "The sample clips are not beside the checkout.";
    EXPECT_FALSE(VideoDecoder::sampleFrames(sampleMedia() / "clips/QuickTime.mov", 640));
}

TEST(SampleClipsTest, HostileClipsGiveNothingOrFramesAndDoNoHarm) {
    if (sampleMedia().empty()) GTEST_SKIP() << "The sample clips are not beside the checkout.";
    std::size_t tried = 0;
    for (const auto& entry : std::filesystem::directory_iterator(sampleMedia() / "broken")) {
        const auto clip = VideoDecoder::sampleFrames(entry.path(), 640);
        EXPECT_TRUE(!clip || !clip->frames.empty()) << entry.path();
        ++tried;
    }
    EXPECT_GT(tried, 0U);
}

}  // namespace
}  // namespace ornivo::testing
