#include "platform/Clip.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "platform/BitmapTransforms.h"
#include "support/Clips.h"
#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

constexpr FrameTime start{0, 0.25, 0.5};
constexpr int anySize = 10000;

/// The frame for one time alone.
std::optional<Bitmap> frameAt(Clip& clip, const FrameTime& time, int maxDimension = anySize) {
    auto frames = clip.frames({time}, maxDimension);
    return frames.empty() ? std::nullopt : std::optional(std::move(frames.front()));
}

/// The colour in the middle of a clip's first frame; black when there is none.
Colour middleOf(const fs::path& file) {
    auto clip = Clip::open(file);
    const auto frame = clip ? frameAt(*clip, start) : std::nullopt;
    EXPECT_TRUE(frame) << file;
    return frame ? at(*frame, frame->width() / 2, frame->height() / 2) : Colour{0, 0, 0};
}

PixelSize sizeOfFrame(const fs::path& file, int maxDimension) {
    auto clip = Clip::open(file);
    const auto frame = clip ? frameAt(*clip, start, maxDimension) : std::nullopt;
    EXPECT_TRUE(frame) << file;
    return frame ? PixelSize{frame->width(), frame->height()} : PixelSize{0, 0};
}

struct Codec {
    const char* encoder;
    const char* extension;
};

std::ostream& operator<<(std::ostream& out, const Codec& codec) {
    return out << codec.encoder;
}

class ClipCodec : public ::testing::TestWithParam<Codec> {};

TEST_P(ClipCodec, IsDecoded) {
    const auto [encoder, extension] = GetParam();
    if (!canEncode(encoder)) GTEST_SKIP() << "This ffmpeg has no encoder " << encoder << ".";
    const TempFolder folder;
    const auto file =
        writeClip(folder / (std::string("clip.") + extension),
                  plainPictures("0xC83C1E", 128, 96, 1), {"-c:v", encoder, "-b:v", "2M"});
    EXPECT_TRUE(isNear(middleOf(file), {200, 60, 30}, 10)) << middleOf(file);
}

INSTANTIATE_TEST_SUITE_P(
    Clip, ClipCodec,
    ::testing::Values(Codec{"libx264", "mp4"}, Codec{"libx264", "mov"}, Codec{"libx264", "m4v"},
                      Codec{"libx265", "mov"}, Codec{"libx265", "mp4"}, Codec{"mjpeg", "mov"},
                      Codec{"mjpeg", "mp4"}, Codec{"prores_ks", "mov"}, Codec{"libvpx-vp9", "mp4"},
                      Codec{"libsvtav1", "mp4"}, Codec{"libaom-av1", "mp4"}, Codec{"mpeg4", "mp4"}),
    [](const auto& codec) {
        std::string name = std::string(codec.param.encoder) + "_" + codec.param.extension;
        std::ranges::replace_if(
            name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
        return name;
    });

TEST(Clip, TheMatrixAndTheRangeOfTheStreamAreHonoured) {
    struct Form {
        const char* matrix;
        const char* range;
    };
    for (const auto& [matrix, range] :
         {Form{"bt709", "tv"}, Form{"bt709", "pc"}, Form{"smpte170m", "tv"}, Form{"bt470bg", "pc"},
          Form{"bt2020nc", "tv"}}) {
        const TempFolder folder;
        const std::string scale = std::string("scale=out_color_matrix=") +
                                  (matrix == std::string("bt2020nc") ? "bt2020" : matrix) +
                                  ":out_range=" + range + ",format=yuv420p";
        const auto file = writeClip(folder / "clip.mp4", plainPictures("0xC83C1E", 128, 96, 1),
                                    {"-vf", scale, "-c:v", "libx264", "-crf", "3", "-colorspace",
                                     matrix, "-color_range", range});
        EXPECT_TRUE(isNear(middleOf(file), {200, 60, 30}, 5))
            << matrix << " " << range << " " << middleOf(file);
    }
}

TEST(Clip, WithoutAMatrixTheUsualOneForTheSizeIsTaken) {
    const TempFolder folder;
    struct Form {
        int width;
        int height;
        const char* matrix;
    };
    for (const auto& [width, height, matrix] :
         {Form{1280, 720, "bt709"}, Form{640, 480, "smpte170m"}}) {
        const auto file = writeClip(
            folder / "clip.mp4", plainPictures("0xC83C1E", width, height, 0.3),
            {"-vf", std::string("scale=out_color_matrix=") + matrix + ",format=yuv420p", "-c:v",
             "libx264", "-crf", "3", "-bsf:v", "h264_metadata=matrix_coefficients=2"});
        EXPECT_TRUE(isNear(middleOf(file), {200, 60, 30}, 5)) << matrix << " " << middleOf(file);
    }
}

/// A clip of ten bits, as a camera writes high dynamic range, all of one grey.
fs::path writeDeepGrey(const fs::path& path, int level, const std::string& transfer) {
    return writeClip(path,
                     {"-f", "lavfi", "-i",
                      "nullsrc=s=128x96:r=10:d=0.5,format=yuv420p10le,geq=lum=" +
                          std::to_string(level) + ":cb=512:cr=512"},
                     {"-c:v", "libx265", "-crf", "3", "-tag:v", "hvc1", "-x265-params",
                      "log-level=none:colorprim=bt2020:colormatrix=bt2020nc:transfer=" + transfer});
}

TEST(Clip, HighDynamicRangeIsBroughtToAnOrdinaryScreen) {
    if (!canEncode("libx265")) GTEST_SKIP() << "This ffmpeg has no encoder libx265.";
    constexpr int hundredCandelas = 509;
    constexpr int paperWhiteOfHybridLogGamma = 721;
    const TempFolder folder;
    EXPECT_TRUE(isNear(middleOf(writeDeepGrey(folder / "pq.mov", hundredCandelas, "smpte2084")),
                       {186, 186, 186}, 4));
    EXPECT_TRUE(isNear(
        middleOf(writeDeepGrey(folder / "hlg.mov", paperWhiteOfHybridLogGamma, "arib-std-b67")),
        {231, 231, 231}, 4));
}

TEST(Clip, TenBitsOfOrdinaryRangeLoseNothingButTheirDepth) {
    if (!canEncode("libx265")) GTEST_SKIP() << "This ffmpeg has no encoder libx265.";
    const TempFolder folder;
    EXPECT_TRUE(
        isNear(middleOf(writeDeepGrey(folder / "a.mov", 502, "bt2020-10")), {128, 128, 128}, 3));
}

TEST(Clip, PixelsThatAreNotSquareAreLevelledOut) {
    const TempFolder folder;
    const auto wide =
        writeClip(folder / "wide.mp4", plainPictures("red", 120, 90, 0.5), {"-vf", "setsar=4/3"});
    EXPECT_EQ(sizeOfFrame(wide, anySize), (PixelSize{160, 90}));
    EXPECT_EQ(sizeOfFrame(wide, 80), (PixelSize{80, 45}));
    const auto narrow =
        writeClip(folder / "narrow.mp4", plainPictures("red", 120, 90, 0.5), {"-vf", "setsar=1/2"});
    EXPECT_EQ(sizeOfFrame(narrow, anySize), (PixelSize{60, 90}));
}

TEST(Clip, EachDisplayMatrixSetsThePictureUpright) {
    struct Turn {
        int columnsByX, rowsByX, columnsByY, rowsByY;
        std::uint32_t orientation;
    };
    const TempFolder folder;
    const auto picture = writePng(folder / "quarters.png", quarters(96, 64));
    const auto whole = writeClip(folder / "whole.mov", stillPicture(picture),
                                 {"-c:v", "mjpeg", "-q:v", "2", "-pix_fmt", "yuvj444p"});
    for (const auto& turn :
         {Turn{1, 0, 0, 1, 1}, Turn{-1, 0, 0, 1, 2}, Turn{-1, 0, 0, -1, 3}, Turn{1, 0, 0, -1, 4},
          Turn{0, 1, 1, 0, 5}, Turn{0, 1, -1, 0, 6}, Turn{0, -1, -1, 0, 7}, Turn{0, -1, 1, 0, 8}}) {
        const auto file = folder / "turned.mov";
        fs::copy_file(whole, file, fs::copy_options::overwrite_existing);
        setDisplayMatrix(file, turn.columnsByX, turn.rowsByX, turn.columnsByY, turn.rowsByY);
        const Bitmap expected = upright(quarters(96, 64), turn.orientation);
        auto clip = Clip::open(file);
        ASSERT_TRUE(clip);
        const auto frame = frameAt(*clip, start);
        ASSERT_TRUE(frame);
        ASSERT_EQ(frame->width(), expected.width()) << turn.orientation;
        for (const int quarter : {0, 1, 2, 3}) {
            const int x = frame->width() * (quarter % 2 == 0 ? 1 : 3) / 4;
            const int y = frame->height() * (quarter < 2 ? 1 : 3) / 4;
            EXPECT_TRUE(isNear(at(*frame, x, y), at(expected, x, y), 12)) << turn.orientation;
        }
    }
}

TEST(Clip, TheFrameWantedIsPreferredWhereEachStandsForItself) {
    const TempFolder folder;
    auto clip = Clip::open(
        writeClip(folder / "clock.mov", clockPictures(4), {"-c:v", "mjpeg", "-q:v", "2"}));
    ASSERT_TRUE(clip);
    for (const double wanted : {0.5, 1.5, 3.0, 2.0}) {
        const auto frame = frameAt(*clip, {wanted - 0.5, wanted, wanted + 0.5});
        ASSERT_TRUE(frame);
        EXPECT_NEAR(secondShown(*frame, 4), wanted, 0.1);
    }
}

TEST(Clip, FramesCanBeTakenInAnyOrder) {
    const TempFolder folder;
    auto clip = Clip::open(
        writeClip(folder / "clock.mp4", clockPictures(8), {"-g", "9999", "-sc_threshold", "0"}));
    ASSERT_TRUE(clip);
    for (const double wanted : {6.0, 2.0, 2.0, 5.0, 7.5, 0.5}) {
        const auto frame = frameAt(*clip, {wanted - 0.5, wanted, wanted + 0.5});
        ASSERT_TRUE(frame);
        EXPECT_NEAR(secondShown(*frame, 8), wanted, 0.6);
    }
}

TEST(Clip, AKeyFrameInTheLaterHalfOfItsTimeIsTakenWithoutAWalk) {
    const TempFolder folder;
    auto clip = Clip::open(writeClip(
        folder / "clock.mp4", clockPictures(5),
        {"-g", "9999", "-sc_threshold", "0", "-force_key_frames", "3.2", "-c:v", "libx264"}));
    ASSERT_TRUE(clip);
    const auto frames = clip->frames({{1, 1.5, 2}, {2.5, 3, 3.5}}, anySize);
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_NEAR(secondShown(frames[1], 5), 3.2, 0.03);
}

TEST(Clip, AFrameAtTheLatestTimeIsThatOfTheNext) {
    const TempFolder folder;
    auto clip = Clip::open(
        writeClip(folder / "clock.mov", clockPictures(4), {"-c:v", "mjpeg", "-q:v", "2"}));
    ASSERT_TRUE(clip);
    const auto frames = clip->frames({{0.5, 2, 2}, {2, 2, 3}}, anySize);
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_NEAR(secondShown(frames[0], 4), 2 - 1.0 / 30, 0.01);
    EXPECT_NEAR(secondShown(frames[1], 4), 2, 0.01);
}

TEST(Clip, ATimeBehindTheEndHasNoFrame) {
    const TempFolder folder;
    auto clip = Clip::open(writeClip(folder / "a.mp4", plainPictures("red", 64, 48, 2)));
    ASSERT_TRUE(clip);
    EXPECT_FALSE(frameAt(*clip, {5, 5.5, 6}));
    EXPECT_TRUE(frameAt(*clip, {1, 1.5, 2}));
}

TEST(Clip, TheDurationIsTheLongestOfSoundAndPictures) {
    const TempFolder folder;
    const auto clip =
        Clip::open(writeClip(folder / "a.mp4", {"-f", "lavfi", "-i", "color=red:s=64x48:r=10:d=1",
                                                "-f", "lavfi", "-i", "sine=d=3"}));
    ASSERT_TRUE(clip);
    EXPECT_NEAR(clip->duration().value(), 3, 0.1);
    EXPECT_TRUE(clip->hasVideo());
}

TEST(Clip, ADurationThatTheHeadersDoNotStateIsThatOfThePictures) {
    constexpr std::size_t durationInMovieHeader = 16;
    const TempFolder folder;
    const auto file = writeClip(folder / "a.mp4", plainPictures("red", 64, 48, 2));
    patchBoxes(file, "mvhd", durationInMovieHeader, std::string(4, '\0'));
    EXPECT_NEAR(Clip::open(file).value().duration().value(), 2, 0.01);
    const auto fragments = writeClip(folder / "b.mp4", plainPictures("red", 64, 48, 6),
                                     {"-g", "10", "-movflags", "frag_keyframe+empty_moov"});
    EXPECT_NEAR(Clip::open(fragments).value().duration().value(), 6, 0.2);
    cutBeforeBox(fragments, "moof");
    EXPECT_FALSE(Clip::open(fragments).value().duration());
}

TEST(Clip, TheCodingIsToldByItsNameAndOfH264ByItsProfile) {
    const TempFolder folder;
    const auto codingOf = [&](const char* name, const FFmpegArguments& output) {
        const auto clip =
            Clip::open(writeClip(folder / name, plainPictures("red", 64, 48, 1), output));
        return clip ? clip->coding() : Clip::Coding{"no clip", std::nullopt};
    };
    const auto high = codingOf("a.mp4", {"-c:v", "libx264", "-pix_fmt", "yuv420p"});
    EXPECT_EQ(high.codec, "h264");
    EXPECT_EQ(high.h264Profile, 100);
    EXPECT_EQ(codingOf("b.mp4", {"-c:v", "libx264", "-pix_fmt", "yuv422p"}).h264Profile, 122);
    const auto jpegs = codingOf("c.mov", {"-c:v", "mjpeg"});
    EXPECT_EQ(jpegs.codec, "mjpeg");
    EXPECT_EQ(jpegs.h264Profile, std::nullopt);
}

TEST(Clip, SoundAloneHasNoVideo) {
    const TempFolder folder;
    const auto clip = Clip::open(writeClip(folder / "a.mp4", {"-f", "lavfi", "-i", "sine=d=1"}));
    ASSERT_TRUE(clip);
    EXPECT_FALSE(clip->hasVideo());
}

TEST(Clip, TheDateOfTheCameraComesBeforeThatOfTheMovieHeader) {
    const TempFolder folder;
    const auto plain = plainPictures("red", 64, 48, 0.2);
    const auto header =
        writeClip(folder / "a.mp4", plain, {"-metadata", "creation_time=2024-05-16T23:12:33Z"});
    EXPECT_EQ(Clip::open(header).value().creationDates(), Texts{"2024-05-16T23:12:33.000000Z"});
    const auto both = writeClip(
        folder / "b.mov", plain,
        {"-movflags", "use_metadata_tags", "-metadata", "creation_time=2024-05-16T23:12:33Z",
         "-metadata", "com.apple.quicktime.creationdate=2024-05-17T08:12:33+0900"});
    const auto dates = Clip::open(both).value().creationDates();
    ASSERT_EQ(dates.size(), 2U);
    EXPECT_EQ(dates[0], "2024-05-17T08:12:33+0900");
    EXPECT_EQ(dates[1].substr(0, 19), "2024-05-16T23:12:33");
    const auto none = writeClip(folder / "c.mp4", plain);
    EXPECT_EQ(Clip::open(none).value().creationDates(), Texts());
}

TEST(Clip, MetadataStandsUnderTheKeysOfTheFile) {
    const TempFolder folder;
    const auto textUnder = [](const fs::path& file, const std::string& key) {
        const auto items = Clip::open(file).value().metadata();
        const auto found = std::ranges::find(items, key, &ClipMetadataItem::key);
        return found == items.end() ? std::string() : found->text;
    };
    const auto plain = plainPictures("red", 64, 48, 0.2);
    const auto userData = writeClip(folder / "a.mov", plain, {"-metadata", "location=+10+020/"});
    EXPECT_EQ(textUnder(userData, "©xyz"), "+10+020/");
    const std::string key = "com.apple.quicktime.location.ISO6709";
    const auto keyed = writeClip(folder / "b.mov", plain,
                                 {"-movflags", "use_metadata_tags", "-metadata", key + "=+1+2/"});
    EXPECT_EQ(textUnder(keyed, key), "+1+2/");
}

TEST(Clip, WhenPatienceIsAtAnEndNothingIsRead) {
    const TempFolder folder;
    const auto file = writeClip(folder / "a.mp4", plainPictures("red", 64, 48, 0.5));
    EXPECT_TRUE(Clip::open(file));
    EXPECT_FALSE(Clip::open(file, std::chrono::seconds(0)));
}

TEST(Clip, PicturesLargerThanAnyCamerasGiveNoFrame) {
    const TempFolder folder;
    const auto file =
        writeClip(folder / "a.mp4", plainPictures("red", 64, 48, 0.5), {"-c:v", "libx264"});
    for (const auto& [height, isTaken] : {std::pair{5464, true}, {6200, false}}) {
        statePictureSize(file, "avc1", 8192, height);
        auto clip = Clip::open(file);
        ASSERT_TRUE(clip);
        EXPECT_TRUE(clip->hasVideo());
        EXPECT_EQ(frameAt(*clip, start).has_value(), isTaken) << height;
    }
}

TEST(Clip, ACodecThatNoCameraHasGivesNoFrame) {
    const TempFolder folder;
    auto clip = Clip::open(
        writeClip(folder / "a.mov", plainPictures("red", 64, 48, 0.5), {"-c:v", "qtrle"}));
    ASSERT_TRUE(clip);
    EXPECT_TRUE(clip->hasVideo());
    EXPECT_FALSE(frameAt(*clip, start));
}

}  // namespace
}  // namespace ornivo::testing
