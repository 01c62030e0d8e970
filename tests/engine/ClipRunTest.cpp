// Runs over real clips, from the file to the folder it ends in.

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <thread>

#include "media/VideoDecoder.h"
#include "support/Clips.h"
#include "support/RunScene.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Names = std::set<std::string>;

constexpr int width = 64;
const FFmpegArguments mayDay{"-metadata", "creation_time=2024-05-17T08:12:33Z", "-metadata",
                             "location=+27.5916+086.5640/"};

class ClipRun : public ::testing::Test {
protected:
    /// A clip of two seconds whose frames the identifier takes for the bird.
    fs::path clip(const std::string& name, const Bird& bird, double confidence) {
        identifier_->answer(width, guesses({{bird.label, confidence}}));
        const auto file =
            writeClip(scene_.source() / name, plainPictures("red", width, 48, 2), mayDay);
        scene_.input.paths.push_back(file);
        return file;
    }

    std::shared_ptr<ScriptedIdentifier> identifier_ =
        std::make_shared<ScriptedIdentifier>(/*usesLocation=*/true, /*usesDate=*/true);
    RunScene scene_{identifier_};
};

TEST_F(ClipRun, AClipIsSortedUnderItsSpecies) {
    clip("a.MOV", baldEagle, 0.9);
    const auto report = scene_.run();
    EXPECT_EQ(report.sort().sorted, 1);
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/a.MOV"});
}

TEST_F(ClipRun, ADateSubfolderIsTheDayThatTheClipNames) {
    clip("a.mp4", baldEagle, 0.9);
    scene_.input.options.dateSubfolders = true;
    scene_.run();
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/2024-05-17/a.mp4"});
}

TEST_F(ClipRun, EachFrameIsIdentifiedWithThePlaceAndTheMonthOfTheClip) {
    clip("a.mov", baldEagle, 0.9);
    scene_.run();
    const auto calls = identifier_->calls();
    ASSERT_EQ(calls.size(), 2U);
    for (const auto& call : calls) {
        EXPECT_EQ(call.context, IdentificationContext(PhotoLocation::make(27.5916, 86.564), 5));
        EXPECT_EQ(call.orientation, 1U);
    }
}

TEST_F(ClipRun, AnUnsureClipIsLeftForReview) {
    clip("a.m4v", baldEagle, 0.3);
    const auto report = scene_.run();
    EXPECT_EQ(report.sort().lowConfidence, 1);
    EXPECT_TRUE(scene_.filed().contains("_Uncertain/a.m4v"));
}

TEST_F(ClipRun, AClipIsFoundAmongOthers) {
    clip("a.mov", baldEagle, 0.9);
    scene_.picture("b.jpg", robin, 0.9);
    scene_.input.mode = AppMode::find;
    scene_.input.targetSpecies = {{"Bald Eagle", ""}};
    scene_.run();
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/a.mov"});
}

TEST_F(ClipRun, AClipThatCanNotBeReadIsAnErrorAndTheRunGoesOn) {
    fs::resize_file(clip("a.mov", baldEagle, 0.9), 100);
    clip("b.mov", baldEagle, 0.9);
    const auto report = scene_.run();
    EXPECT_EQ(report.sort().errors, 1);
    EXPECT_EQ(report.sort().sorted, 1);
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/b.mov"});
}

TEST(ClipThreads, ClipsAreReadOnSeveralThreadsAtATime) {
    const TempFolder folder;
    std::vector<fs::path> files;
    for (const char* codec : {"libx264", "mpeg4", "mjpeg", "libx264"}) {
        files.push_back(writeClip(folder / (std::to_string(files.size()) + ".mov"),
                                  clockPictures(3), {"-c:v", codec}));
    }
    std::vector<std::optional<VideoDecoder::SampledClip>> clips(files.size());
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < files.size(); ++i) {
            threads.emplace_back([&, i] { clips[i] = VideoDecoder::sampleFrames(files[i], 640); });
        }
    }
    for (std::size_t i = 0; i < files.size(); ++i) {
        const auto alone = VideoDecoder::sampleFrames(files[i], 640);
        ASSERT_TRUE(clips[i] && alone) << i;
        EXPECT_TRUE(std::ranges::equal(clips[i]->frames, alone->frames, std::ranges::equal,
                                       &Bitmap::pixels, &Bitmap::pixels))
            << i;
    }
}

}  // namespace
}  // namespace ornivo
