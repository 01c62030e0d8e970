#include "media/VideoDecoder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <random>

#include "platform/BitmapTransforms.h"
#include "support/Clips.h"
#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;
using Seconds = std::vector<double>;
using Items = std::vector<ClipMetadataItem>;

constexpr int classifierSide = 640;

std::optional<VideoDecoder::SampledClip> sample(const fs::path& clip) {
    return VideoDecoder::sampleFrames(clip, classifierSide);
}

Seconds wantedTimes(double duration) {
    Seconds seconds;
    for (const FrameTime& time : VideoDecoder::sampleTimes(duration)) {
        seconds.push_back(time.wanted);
    }
    return seconds;
}

/// Takes frames from a clip that shows its own time. Each must stand within half a second of its
/// own, but for the little that brightness can't tell.
void expectFramesAt(const Seconds& wanted, double duration, const FFmpegArguments& output) {
    const TempFolder folder;
    const auto clip = sample(writeClip(folder / "clock.mov", clockPictures(duration), output));
    ASSERT_TRUE(clip);
    ASSERT_EQ(clip->frames.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_NEAR(secondShown(clip->frames[i], duration), wanted[i], 0.55) << i;
    }
}

const FFmpegArguments keyFrameEachSecond{"-c:v", "libx264", "-g", "30"};
const FFmpegArguments oneKeyFrame{"-c:v", "libx264", "-g", "9999", "-sc_threshold", "0"};
const FFmpegArguments keyFramesOnly{"-c:v", "mjpeg", "-q:v", "2"};

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

TEST(VideoDecoder, SampleTimesAreTheMiddlesOfEqualSlices) {
    EXPECT_EQ(wantedTimes(0.3), Seconds{0.15});
    EXPECT_EQ(wantedTimes(1.4), Seconds{0.7});
    const Seconds two = wantedTimes(2.4);
    ASSERT_EQ(two.size(), 2U);
    EXPECT_DOUBLE_EQ(two[0], 0.6);
    EXPECT_DOUBLE_EQ(two[1], 1.8);
    EXPECT_EQ(wantedTimes(3.5), (Seconds{0.4375, 1.3125, 2.1875, 3.0625}));
    EXPECT_EQ(wantedTimes(60),
              (Seconds{2.5, 7.5, 12.5, 17.5, 22.5, 27.5, 32.5, 37.5, 42.5, 47.5, 52.5, 57.5}));
}

TEST(VideoDecoder, HalfASecondIsRoundedUpToAFrameMore) {
    EXPECT_EQ(wantedTimes(1.49).size(), 1U);
    EXPECT_EQ(wantedTimes(1.5).size(), 2U);
    EXPECT_EQ(wantedTimes(11.5).size(), 12U);
    EXPECT_EQ(wantedTimes(1e12).size(), 12U);
}

TEST(VideoDecoder, AFrameMayLieHalfASecondFromItsTimeButNotInAnotherSlice) {
    EXPECT_EQ(VideoDecoder::sampleTimes(2).front(), (FrameTime{0, 0.5, 1}));
    EXPECT_EQ(VideoDecoder::sampleTimes(24).front(), (FrameTime{0.5, 1, 1.5}));
    EXPECT_EQ(VideoDecoder::sampleTimes(1.5).front(), (FrameTime{0, 0.375, 0.75}));
}

TEST(VideoDecoder, AThirdOfASecondGivesOneFrame) {
    expectFramesAt({0.15}, 0.3, keyFrameEachSecond);
}

TEST(VideoDecoder, ShortClipsGiveAboutAFrameASecond) {
    for (const auto& output : {keyFrameEachSecond, oneKeyFrame, keyFramesOnly}) {
        expectFramesAt({0.6, 1.8}, 2.4, output);
        expectFramesAt({0.4375, 1.3125, 2.1875, 3.0625}, 3.5, output);
    }
}

TEST(VideoDecoder, AMinuteGivesTwelveFrames) {
    for (const auto& output : {keyFrameEachSecond, oneKeyFrame}) {
        expectFramesAt({2.5, 7.5, 12.5, 17.5, 22.5, 27.5, 32.5, 37.5, 42.5, 47.5, 52.5, 57.5}, 60,
                       output);
    }
}

TEST(VideoDecoder, FramesAreScaledToFitAndNeverEnlarged) {
    const TempFolder folder;
    const auto large =
        sample(writeClip(folder / "large.mp4", plainPictures("red", 1280, 720, 0.5)));
    ASSERT_TRUE(large);
    EXPECT_EQ(large->frames.front().width(), 640);
    EXPECT_EQ(large->frames.front().height(), 360);
    const auto small = sample(writeClip(folder / "small.mp4", plainPictures("red", 64, 48, 0.5)));
    ASSERT_TRUE(small);
    EXPECT_EQ(small->frames.front().width(), 64);
    EXPECT_EQ(small->frames.front().height(), 48);
}

TEST(VideoDecoder, AClipShotUprightComesOutUpright) {
    const TempFolder folder;
    const auto picture = writePng(folder / "quarters.png", quarters(96, 64));
    const auto file = writeClip(folder / "turned.mov", stillPicture(picture),
                                {"-c:v", "libx264", "-pix_fmt", "yuv420p", "-crf", "5"});
    setDisplayMatrix(file, 0, 1, -1, 0);
    const auto clip = sample(file);
    ASSERT_TRUE(clip);
    const Bitmap expected = upright(quarters(96, 64), 6);
    const Bitmap& frame = clip->frames.front();
    ASSERT_EQ(frame.width(), 64);
    ASSERT_EQ(frame.height(), 96);
    for (const auto& [x, y] : {std::pair{16, 24}, {48, 24}, {16, 72}, {48, 72}}) {
        EXPECT_TRUE(isNear(at(frame, x, y), at(expected, x, y), 12)) << at(frame, x, y);
    }
    EXPECT_EQ(clip->metadata.orientation, 1U);
}

TEST(VideoDecoder, ASecondAndTheQualityAreNeverKnown) {
    const TempFolder folder;
    const auto clip = sample(writeClip(folder / "a.mov", plainPictures("red", 64, 48, 1),
                                       {"-metadata", "creation_time=2024-05-17T08:12:33Z"}));
    ASSERT_TRUE(clip);
    PhotoMetadata expected;
    expected.captureDate = "2024-05-17";
    EXPECT_EQ(clip->metadata, expected);
}

TEST(VideoDecoder, SoundAloneIsNoClip) {
    const TempFolder folder;
    EXPECT_FALSE(sample(
        writeClip(folder / "sound.mp4", {"-f", "lavfi", "-i", "sine=d=2"}, {"-c:a", "aac"})));
}

TEST(VideoDecoder, SoundWithCoverArtIsNoClip) {
    const TempFolder folder;
    const auto cover = writeJpeg(folder / "cover.jpg", 64, 48);
    EXPECT_FALSE(
        sample(writeClip(folder / "sound.mp4", {"-f", "lavfi", "-i", "sine=d=2", "-i", cover},
                         {"-c:a", "aac", "-map", "0", "-map", "1", "-c:v", "copy", "-disposition:v",
                          "attached_pic"})));
}

TEST(VideoDecoder, AClipWithoutALengthGivesNothing) {
    const TempFolder folder;
    const auto file = writeClip(folder / "empty.mp4", plainPictures("red", 64, 48, 1),
                                {"-movflags", "frag_keyframe+empty_moov"});
    EXPECT_TRUE(sample(file));
    cutBeforeBox(file, "moof");
    EXPECT_FALSE(sample(file));
}

TEST(VideoDecoder, AnEndlessClipGivesNothing) {
    constexpr std::size_t durationInMovieHeader = 16;
    const TempFolder folder;
    const auto file = writeClip(folder / "endless.mp4", clockPictures(3));
    EXPECT_TRUE(sample(file));
    patchBoxes(file, "mvhd", durationInMovieHeader, "\xff\xff\xff\xff");
    EXPECT_FALSE(sample(file));
}

TEST(VideoDecoder, AClipWrittenInFragmentsIsMeasured) {
    const TempFolder folder;
    const auto clip = sample(writeClip(folder / "fragments.mp4", clockPictures(4),
                                       {"-g", "30", "-movflags", "frag_keyframe+empty_moov"}));
    ASSERT_TRUE(clip);
    ASSERT_EQ(clip->frames.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(secondShown(clip->frames[i], 4), static_cast<double>(i) + 0.5, 0.6);
    }
}

TEST(VideoDecoder, ATruncatedClipGivesTheFramesThatAreLeftAtTheirTimes) {
    const TempFolder folder;
    const auto file = writeClip(folder / "cut.mp4", clockPictures(10),
                                {"-c:v", "mjpeg", "-q:v", "2", "-movflags", "faststart"});
    fs::resize_file(file, fs::file_size(file) / 2);
    const auto clip = sample(file);
    ASSERT_TRUE(clip);
    ASSERT_GE(clip->frames.size(), 4U);
    ASSERT_LE(clip->frames.size(), 6U);
    for (std::size_t i = 0; i < clip->frames.size(); ++i) {
        EXPECT_NEAR(secondShown(clip->frames[i], 10), static_cast<double>(i) + 0.5, 0.6);
    }
}

TEST(VideoDecoder, ATransferThatBrokeOffBeforeTheHeadersGivesNothing) {
    const TempFolder folder;
    const auto file = writeClip(folder / "cut.mov", clockPictures(3));
    fs::resize_file(file, fs::file_size(file) / 2);
    EXPECT_FALSE(sample(file));
}

TEST(VideoDecoder, WhatIsNoClipGivesNothing) {
    const TempFolder folder;
    fs::create_directory(folder / "folder.mov");
    ASSERT_EQ(mkfifo((folder / "pipe.mov").c_str(), 0600), 0);
    writeFile(folder / "empty.mov", "");
    writeFile(folder / "words.mov", "moov");
    writeJpeg(folder / "picture.mov", 64, 48);
    writeFile(folder / "list.mp4", "#EXTM3U\n#EXTINF:1,\nhttp://127.0.0.1:9/a.mp4\n");
    for (const char* name : {"folder.mov", "pipe.mov", "empty.mov", "words.mov", "picture.mov",
                             "list.mp4", "missing.mov"}) {
        EXPECT_FALSE(sample(folder / name)) << name;
    }
}

TEST(VideoDecoder, ANameLikeAnAddressIsAFile) {
    const TempFolder folder;
    const auto before = fs::current_path();
    fs::rename(writeClip(folder / "clip.mp4", plainPictures("red", 64, 48, 0.5)),
               folder / "http:clip.mp4");
    fs::current_path(folder.path());
    const auto clip = sample("http:clip.mp4");
    fs::current_path(before);
    EXPECT_TRUE(clip);
}

TEST(VideoDecoder, DamagedClipsNeverDoHarm) {
    const TempFolder folder;
    std::mt19937 random(20261121);
    for (const char* flags : {"faststart", "frag_keyframe+empty_moov"}) {
        const std::string whole = readFile(
            writeClip(folder / "whole.mov", clockPictures(1),
                      {"-g", "10", "-movflags", flags, "-metadata", "location=+27.5+086.5/"}));
        for (int round = 0; round < 150; ++round) {
            std::string damaged = whole;
            const std::size_t reach = round % 2 == 0 ? 1500 : whole.size();
            for (auto changes = 1 + random() % 8; changes > 0; --changes) {
                damaged[random() % reach] = static_cast<char>(random());
            }
            const auto clip = sample(writeFile(folder / "damaged.mov", damaged));
            EXPECT_TRUE(!clip || !clip->frames.empty());
        }
    }
}

TEST(VideoDecoder, TheDayIsTheOneThatTheTextBeginsWith) {
    EXPECT_EQ(VideoDecoder::day("2024-05-17T08:12:33+0100"), "2024-05-17");
    EXPECT_EQ(VideoDecoder::day("2024-05-17"), "2024-05-17");
    EXPECT_EQ(VideoDecoder::day("abcd-ef-gh and more"), "abcd-ef-gh");
    for (const char* text : {"20240517", "2024-05-1", "2024:05:17 08:12:33", "2024-05:17", ""}) {
        EXPECT_FALSE(VideoDecoder::day(text)) << text;
    }
}

TEST(VideoDecoder, APositionIsReadWithAndWithoutAHeight) {
    const auto everest = PhotoLocation::make(27.5916, 86.5640);
    for (const char* text : {"+27.5916+086.5640/", "+27.5916+086.5640+8850/", "+27.5916+086.5640",
                             " /+27.5916+086.5640-12.5/\n\t", "+27.5916+086.5640+8850CRSWGS_84/"}) {
        EXPECT_EQ(VideoDecoder::parseISO6709(text), everest) << text;
    }
    EXPECT_EQ(VideoDecoder::parseISO6709("-33.9-151.2/"), PhotoLocation::make(-33.9, -151.2));
    EXPECT_EQ(VideoDecoder::parseISO6709("+0-0/"), PhotoLocation::make(0, 0));
}

TEST(VideoDecoder, WhatIsNoPositionGivesNone) {
    for (const char* text :
         {"27.5916+086.5640", "+27.5916", "", "/", "+", "++", "+-", "+27.5916+", "+27.59 +086.56/",
          "+27,5916+086,5640/", "+91+000/", "+00+181/", "+nan+000/", "+inf+inf/", "+0x10+0x10/",
          "+2735.5+08633.8+1/", "north+east"}) {
        EXPECT_FALSE(VideoDecoder::parseISO6709(text)) << text;
    }
}

TEST(VideoDecoder, DamagedPositionsAreReadOrRefused) {
    const std::string whole = "+27.5916+086.5640+8850/";
    const std::string letters = "+-./0123456789eEinfx \n\t\xc2\xa9";
    std::mt19937 random(20261121);
    for (int round = 0; round < 20000; ++round) {
        std::string text = whole;
        for (auto changes = 1 + random() % 6; changes > 0; --changes) {
            text[random() % text.size()] = letters[random() % letters.size()];
        }
        text.resize(random() % 4 == 0 ? random() % text.size() : text.size());
        const auto position = VideoDecoder::parseISO6709(text);
        if (!position) continue;
        EXPECT_LE(std::abs(position->latitude()), 90) << text;
        EXPECT_LE(std::abs(position->longitude()), 180) << text;
    }
}

TEST(VideoDecoder, TheFirstPositionThatCanBeReadCounts) {
    const auto place = PhotoLocation::make(10, 20);
    const Items garbageFirst{{"com.apple.quicktime.location.ISO6709", "somewhere"},
                             {"©xyz", "+10+020/"},
                             {"location", "+30+040/"}};
    EXPECT_EQ(VideoDecoder::location(garbageFirst), place);
    EXPECT_EQ(VideoDecoder::location({{"com.apple.quicktime.location.ISO6709", "+10+020/"}}),
              place);
    EXPECT_EQ(VideoDecoder::location({{"my location", "+10+020/"}}), place);
    const Items none{{"Location", "+10+020/"}, {"xyz", "+10+020/"}, {"", "+10+020/"}};
    EXPECT_FALSE(VideoDecoder::location(none));
    EXPECT_FALSE(VideoDecoder::location({}));
}

TEST(VideoDecoder, APositionIsFoundUnderBothKeys) {
    const TempFolder folder;
    const auto plain = plainPictures("red", 64, 48, 0.5);
    const auto place = PhotoLocation::make(27.5916, 86.564);
    const auto userData = sample(
        writeClip(folder / "a.mp4", plain, {"-metadata", "location=+27.5916+086.5640+8850/"}));
    ASSERT_TRUE(userData);
    EXPECT_EQ(userData->metadata.location, place);
    const auto keyed =
        sample(writeClip(folder / "b.mov", plain,
                         {"-movflags", "use_metadata_tags", "-metadata",
                          "com.apple.quicktime.location.ISO6709=+27.5916+086.5640+8850/",
                          "-metadata", "com.apple.quicktime.creationdate=2024-05-17T08:12:33+0100",
                          "-metadata", "creation_time=2024-05-16T23:12:33Z"}));
    ASSERT_TRUE(keyed);
    EXPECT_EQ(keyed->metadata.location, place);
    EXPECT_EQ(keyed->metadata.captureDate, "2024-05-17");
}

TEST(VideoDecoder, AClipThatStatesNothingHasNoDayAndNoPosition) {
    const TempFolder folder;
    const auto clip = sample(writeClip(folder / "a.m4v", plainPictures("red", 64, 48, 0.5)));
    ASSERT_TRUE(clip);
    EXPECT_EQ(clip->metadata, PhotoMetadata());
}

}  // namespace
}  // namespace ornivo::testing
