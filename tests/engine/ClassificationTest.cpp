#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <thread>

#include "platform/Error.h"
#include "support/RunScene.h"
#include "vocabulary/BirdIdentifierError.h"

namespace ornivo {
namespace {

using namespace testing;

const std::string unreadable = "The file couldn't be read.";

/// What an operation fails with, in its words; empty if it doesn't fail.
template <typename Operation>
std::string failureOf(Operation operation) {
    try {
        operation();
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

std::exception_ptr identifierFailure(const std::string& words) {
    return std::make_exception_ptr(BirdIdentifierError::identificationFailed(words));
}

/// A clip with frames of these widths.
VideoDecoder::SampledClip clip(const std::vector<int>& widths, PhotoMetadata metadata = {}) {
    VideoDecoder::SampledClip sampled{{}, std::move(metadata)};
    for (const int width : widths) sampled.frames.push_back(filled(width, 8));
    return sampled;
}

TEST(Classification, AStillGetsTheIdentifiersAnswerAndItsMetadata) {
    RunScene scene;
    const auto photo = scene.picture("a.jpg", baldEagle, 0.9, {.orientation = std::uint16_t{6}});
    const auto shot = scene.engine().classify(photo, std::nullopt);
    EXPECT_EQ(shot.species, guesses({{baldEagle.label, 0.9}}));
    EXPECT_EQ(shot.metadata.orientation, 6U);
    ASSERT_EQ(scene.identifier().calls().size(), 1U);
    EXPECT_EQ(scene.identifier().calls()[0].orientation, 6U);
}

TEST(Classification, AStillIsShownAtNoMoreThan640PixelsASide) {
    RunScene scene;
    const auto photo = writeJpeg(scene.source() / "large.jpg", 1280, 960);
    scene.identifier().answer(640, guesses({{robin.label, 0.8}}));
    EXPECT_EQ(scene.engine().classify(photo, std::nullopt).species.topLabel(), robin.label);
}

TEST(Classification, AStillThatCanNotBeDecodedCanNotBeRead) {
    RunScene scene;
    const auto photo = scene.junk("a.jpg");
    try {
        scene.engine().classify(photo, std::nullopt);
        ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.domain(), Error::cocoaDomain);
        EXPECT_EQ(error.code(), Error::fileReadUnknown);
        EXPECT_EQ(error.localizedDescription(), unreadable);
    }
    EXPECT_TRUE(scene.identifier().calls().empty());
}

TEST(Classification, AFailureOfTheIdentifierIsPassedOnAsItStands) {
    RunScene scene;
    const auto photo = scene.failingPicture(
        "a.jpg", std::make_exception_ptr(BirdIdentifierError::imageTooSmall()));
    EXPECT_EQ(failureOf([&] { scene.engine().classify(photo, std::nullopt); }),
              "Image is smaller than 224×224 pixels.");
}

TEST(Classification, AShotTakesTheSurerAnswerAndTheMetadataOfTheFirstFileThatAnswered) {
    RunScene scene;
    const auto first = scene.picture("a.jpg", robin, 0.6, {.orientation = std::uint16_t{3}});
    const auto second = scene.picture("a.tif.jpg", baldEagle, 0.7);
    const auto shot = scene.engine().classifyShot({first, second}, std::nullopt);
    EXPECT_EQ(shot.species.topLabel(), baldEagle.label);
    EXPECT_EQ(shot.metadata.orientation, 3U);
}

TEST(Classification, OfEqualAnswersThatOfTheEarlierFileCounts) {
    RunScene scene;
    const auto raw = scene.raw("a.dng", robin, 0.91);
    const auto jpeg = scene.picture("a.jpg", baldEagle, 0.91);
    auto& engine = scene.engine();
    EXPECT_EQ(engine.classifyShot({raw, jpeg}, std::nullopt).species.topLabel(), robin.label);
    EXPECT_EQ(engine.classifyShot({jpeg, raw}, std::nullopt).species.topLabel(), baldEagle.label);
}

TEST(Classification, AJpegThatFailsToDecodeLeavesTheShotToItsRaw) {
    RunScene scene;
    const auto jpeg = scene.junk("a.jpg");
    const auto raw = scene.raw("a.dng", robin, 0.8);
    const auto shot = scene.engine().classifyShot({jpeg, raw}, std::nullopt);
    EXPECT_EQ(shot.species.topLabel(), robin.label);
    EXPECT_EQ(shot.metadata, scene.engine().classify(raw, std::nullopt).metadata);
}

TEST(Classification, AShotOfWhichEveryFileFailsFailsAsItsLastFileDid) {
    RunScene scene;
    const auto first = scene.failingPicture("a.jpg", identifierFailure("the first"));
    const auto second = scene.failingPicture("b.jpg", identifierFailure("the second"));
    EXPECT_EQ(failureOf([&] {
                  scene.engine().classifyShot({first, second}, std::nullopt);
              }),
              "the second");
}

TEST(Classification, AShotOfNoFileCanNotBeRead) {
    RunScene scene;
    EXPECT_EQ(failureOf([&] { scene.engine().classifyShot({}, std::nullopt); }), unreadable);
}

TEST(Classification, AClipBesideAStillIsNotLookedAt) {
    RunScene scene;
    const auto clip = scene.junk("a.MOV");
    const auto still = scene.picture("a.jpg", robin, 0.4);
    EXPECT_EQ(scene.engine().classifyShot({clip, still}, std::nullopt).species.topLabel(),
              robin.label);
    const auto broken = scene.failingPicture("b.jpg", identifierFailure("the still"));
    EXPECT_EQ(failureOf([&] {
                  scene.engine().classifyShot({broken, clip}, std::nullopt);
              }),
              "the still");
}

TEST(Classification, AClipThatCanNotBeSampledCanNotBeRead) {
    RunScene scene;
    const auto clip = scene.junk("a.mp4");
    auto& engine = scene.engine();
    EXPECT_EQ(failureOf([&] { engine.classifyVideo(clip, std::nullopt); }), unreadable);
    EXPECT_EQ(failureOf([&] { engine.classify(clip, std::nullopt); }), unreadable);
    EXPECT_EQ(failureOf([&] { engine.classifyShot({clip}, std::nullopt); }), unreadable);
}

TEST(Classification, AClipWithoutFramesCanNotBeRead) {
    RunScene scene;
    EXPECT_EQ(failureOf([&] { scene.engine().classifyFrames(clip({}), std::nullopt); }),
              unreadable);
}

TEST(Classification, TheSurestFrameOfAClipCountsWithoutAVote) {
    RunScene scene;
    scene.identifier().answer(11, guesses({{robin.label, 0.6}}));
    scene.identifier().answer(12, guesses({{baldEagle.label, 0.7}}));
    scene.identifier().answer(13, guesses({{grebe.label, 0.7}}));
    PhotoMetadata metadata;
    metadata.orientation = 8;
    const auto sampled = clip({11, 11, 12, 13, 11}, metadata);
    const auto shot = scene.engine().classifyFrames(sampled, std::nullopt);
    EXPECT_EQ(shot.species.topLabel(), baldEagle.label);
    EXPECT_EQ(shot.metadata, metadata);
    for (const auto& call : scene.identifier().calls()) EXPECT_EQ(call.orientation, 8U);
}

TEST(Classification, OneFrameOfTwelveThatAnswersIsEnough) {
    RunScene scene;
    scene.identifier().answer(20, guesses({{robin.label, 0.2}}));
    const auto sampled = clip({1, 2, 3, 4, 5, 6, 20, 8, 9, 10, 11, 12});
    EXPECT_EQ(scene.engine().classifyFrames(sampled, std::nullopt).species.topLabel(), robin.label);
}

TEST(Classification, AClipOfWhichEveryFrameFailsFailsAsItsLastFrameDid) {
    RunScene scene;
    scene.identifier().fail(1, identifierFailure("the first"));
    scene.identifier().fail(2, std::make_exception_ptr(std::runtime_error("the last")));
    EXPECT_EQ(failureOf([&] {
                  scene.engine().classifyFrames(clip({1, 2}), std::nullopt);
              }),
              "the last");
}

// What the identifier is told of the place and the season.

class ClassificationContext : public ::testing::Test {
protected:
    IdentificationContext told(bool usesLocation, bool usesDate, const Exif& exif,
                               const std::optional<PhotoLocation>& assumed) {
        RunScene scene(std::make_shared<ScriptedIdentifier>(usesLocation, usesDate));
        const auto photo = scene.picture("a.jpg", robin, 0.9, exif);
        scene.engine().classify(photo, assumed);
        return scene.identifier().calls().at(0).context;
    }

    std::optional<int> monthToldFor(const std::optional<std::string>& captureDay) {
        RunScene scene(std::make_shared<ScriptedIdentifier>(true, true));
        scene.identifier().answer(5, guesses({{robin.label, 0.9}}));
        PhotoMetadata metadata;
        metadata.captureDate = captureDay;
        scene.engine().classifyFrames(clip({5}, metadata), std::nullopt);
        return scene.identifier().calls().at(0).context.month;
    }

    const std::optional<PhotoLocation> assumed_ = PhotoLocation::make(51.5, -0.12);
    const Exif placed_{.dateTimeOriginal = "2024:05:17 06:07:08",
                       .position = std::pair{-33.5, 151.25}};
};

TEST_F(ClassificationContext, ThePositionInTheFileGoesBeforeTheAssumedOne) {
    const auto location = told(true, true, placed_, assumed_).location;
    ASSERT_TRUE(location);
    EXPECT_NEAR(location->latitude(), -33.5, 1e-4);
    EXPECT_NEAR(location->longitude(), 151.25, 1e-4);
}

TEST_F(ClassificationContext, WithoutAPositionInTheFileTheAssumedOneIsTold) {
    EXPECT_EQ(told(true, true, {}, assumed_).location, assumed_);
    EXPECT_EQ(told(true, true, {}, std::nullopt).location, std::nullopt);
}

TEST_F(ClassificationContext, AnIdentifierThatMakesNothingOfPlacesIsToldNone) {
    EXPECT_EQ(told(false, true, placed_, assumed_).location, std::nullopt);
}

TEST_F(ClassificationContext, AnIdentifierThatMakesNothingOfDatesIsToldNone) {
    EXPECT_EQ(told(true, true, placed_, assumed_).month, 5);
    EXPECT_EQ(told(true, false, placed_, assumed_).month, std::nullopt);
}

TEST_F(ClassificationContext, TheMonthIsReadFromTheCaptureDay) {
    EXPECT_EQ(monthToldFor("2024-05-17"), 5);
    EXPECT_EQ(monthToldFor("2024-12-31"), 12);
    EXPECT_EQ(monthToldFor("2024-13-17"), std::nullopt);
    EXPECT_EQ(monthToldFor("2024-00-17"), std::nullopt);
    EXPECT_EQ(monthToldFor("2024-x5-17"), std::nullopt);
    EXPECT_EQ(monthToldFor("2024-5-17"), std::nullopt);
    EXPECT_EQ(monthToldFor(std::nullopt), std::nullopt);
}

TEST_F(ClassificationContext, ADayTextOfSixCharactersGivesTheOneDigitAtItsEnd) {
    EXPECT_EQ(monthToldFor("2024-7"), 7);
    EXPECT_EQ(monthToldFor("2024-0"), std::nullopt);
    EXPECT_EQ(monthToldFor("2024-"), std::nullopt);
    EXPECT_EQ(monthToldFor(""), std::nullopt);
}

TEST(Classification, TheIdentifierHasOneCallerAtATime) {
    RunScene scene(std::make_shared<ScriptedIdentifier>(), {}, /*workers=*/4);
    scene.identifier().onCall(
        [](int) { std::this_thread::sleep_for(std::chrono::milliseconds(1)); });
    for (int i = 0; i < 40; ++i) scene.picture("IMG_" + std::to_string(i) + ".jpg", robin, 0.9);
    EXPECT_EQ(scene.run().sort().sorted, 40);
    EXPECT_EQ(scene.identifier().calls().size(), 40U);
    EXPECT_FALSE(scene.identifier().wasCrowded());
}

}  // namespace
}  // namespace ornivo
