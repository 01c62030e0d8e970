// Which frames are taken from clips whose key frames lie in awkward places.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "media/VideoDecoder.h"
#include "support/Clips.h"
#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;
using Seconds = std::vector<double>;

std::vector<Bitmap> framesOf(const fs::path& file) {
    constexpr int classifierSide = 640;
    auto clip = VideoDecoder::sampleFrames(file, classifierSide);
    return clip ? std::move(clip->frames) : std::vector<Bitmap>();
}

/// The times at which the frames of a clip of `clockPictures` stand.
Seconds secondsOf(const fs::path& file, double duration) {
    Seconds seconds;
    for (const Bitmap& frame : framesOf(file)) seconds.push_back(secondShown(frame, duration));
    return seconds;
}

/// Of a clip of ten seconds: a frame each second, none of them twice.
void expectTenFrames(const Seconds& seconds) {
    ASSERT_EQ(seconds.size(), 10U);
    for (std::size_t i = 0; i < seconds.size(); ++i) {
        EXPECT_NEAR(seconds[i], static_cast<double>(i) + 0.5, 0.55) << i;
    }
    // Closer together than this, they are the same.
    constexpr double frame = 1.0 / 30;
    for (std::size_t i = 1; i < seconds.size(); ++i) {
        EXPECT_GT(seconds[i] - seconds[i - 1], frame / 2) << i;
    }
}

TEST(VideoFrames, AKeyFrameBetweenTwoSlicesIsTakenOnce) {
    const TempFolder folder;
    expectTenFrames(secondsOf(writeClip(folder / "clock.mp4", clockPictures(10),
                                        {"-c:v", "libx264", "-g", "60", "-sc_threshold", "0"}),
                              10));
}

TEST(VideoFrames, KeyFramesThatOthersReachAcrossAreTaken) {
    if (!canEncode("libx265")) GTEST_SKIP() << "This ffmpeg has no encoder libx265.";
    const TempFolder folder;
    expectTenFrames(
        secondsOf(writeClip(folder / "clock.mp4", clockPictures(10),
                            {"-c:v", "libx265", "-x265-params",
                             "log-level=none:keyint=40:min-keyint=40:open-gop=1:bframes=4:ref=5"}),
                  10));
}

TEST(VideoFrames, PicturesThatAreRefreshedPartByPartAreTakenWhole) {
    const TempFolder folder;
    const Seconds seconds = secondsOf(
        writeClip(folder / "clock.mp4", clockPictures(24),
                  {"-c:v", "libx264", "-x264-params", "intra-refresh=1:keyint=60:bframes=0"}),
        24);
    ASSERT_EQ(seconds.size(), 12U);
    for (std::size_t i = 0; i < seconds.size(); ++i) {
        EXPECT_NEAR(seconds[i], static_cast<double>(2 * i) + 1, 0.55) << i;
    }
}

TEST(VideoFrames, APictureThatNoneBuildsOnIsSeenWhileItStands) {
    const TempFolder folder;
    FFmpegArguments input;
    for (const char* colour : {"red", "lime", "blue"}) {
        input.insert(input.end(),
                     {"-f", "lavfi", "-i", std::string("color=") + colour + ":s=64x48:r=1/5:d=5"});
    }
    const auto frames = framesOf(writeClip(folder / "slides.mp4", input,
                                           {"-filter_complex", "concat=n=3", "-c:v", "libx264",
                                            "-bf", "3", "-b_strategy", "0", "-sc_threshold", "0"}));
    ASSERT_EQ(frames.size(), 12U);
    const std::array<Colour, 3> colours{{{255, 0, 0}, {0, 255, 0}, {0, 0, 255}}};
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const Colour shown = at(frames[i], 32, 24);
        EXPECT_TRUE(isNear(shown, colours[i / 4], 12)) << i << " " << shown;
    }
}

const FFmpegArguments oneKeyFrame{"-c:v", "libx264", "-g", "9999", "-sc_threshold", "0"};

TEST(VideoFrames, FromLargePicturesFarBehindAKeyFrameNoneAreTaken) {
    const TempFolder folder;
    const auto file = writeClip(folder / "clock.mp4", clockPictures(60), oneKeyFrame);
    statePictureSize(file, "avc1", 3840, 2160);
    const Seconds seconds = secondsOf(file, 60);
    ASSERT_EQ(seconds.size(), 1U);
    EXPECT_NEAR(seconds.front(), 2.5, 0.56);
}

TEST(VideoFrames, WhereNothingElseCanBeAffordedTheKeyFrameStandsForTheClip) {
    const TempFolder folder;
    const auto file = writeClip(folder / "clock.mp4", clockPictures(120), oneKeyFrame);
    statePictureSize(file, "avc1", 3840, 2160);
    const Seconds seconds = secondsOf(file, 120);
    ASSERT_EQ(seconds.size(), 1U);
    EXPECT_NEAR(seconds.front(), 0, 0.12);
}

TEST(VideoFrames, WhereMemoryIsShortKeyFramesAreTaken) {
    const TempFolder folder;
    const auto file = writeClip(folder / "large.mp4", plainPictures("red", 64, 48, 2),
                                {"-vf", "fps=2,scale=8192:4320", "-c:v", "libx264", "-preset",
                                 "ultrafast", "-g", "9", "-pix_fmt", "yuv420p"});
    EXPECT_EQ(framesOf(file).size(), 1U);
}

}  // namespace
}  // namespace ornivo::testing
