#include "media/VideoDecoder.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

TEST(VideoDecoder, ThreeExtensionsAreClips) {
    EXPECT_EQ(VideoDecoder::videoExtensions(),
              (std::set<std::string, std::less<>>{"m4v", "mov", "mp4"}));
}

TEST(VideoDecoder, TheCaseOfTheExtensionDoesNotMatter) {
    for (const char* name : {"clip.MOV", "clip.mov", "clip.Mp4", "clip.m4v", ".mov"}) {
        EXPECT_TRUE(VideoDecoder::isVideo(name)) << name;
    }
}

TEST(VideoDecoder, NoOtherExtensionIsAClip) {
    for (const char* name : {"clip.jpg", "clip.avi", "mov", "clip.mov.jpg", "clip."}) {
        EXPECT_FALSE(VideoDecoder::isVideo(name)) << name;
    }
}

TEST(VideoDecoder, ClipsGiveNoFramesYet) {
    const TempFolder folder;
    EXPECT_FALSE(VideoDecoder::sampleFrames(writeFile(folder / "a.mov", "moov"), 640));
    EXPECT_FALSE(VideoDecoder::sampleFrames(folder / "missing.mov", 640));
}

}  // namespace
}  // namespace ornivo::testing
