#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "support/RunScene.h"
#include "vocabulary/BirdIdentifierError.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;
using Names = std::set<std::string>;
using Texts = std::vector<std::string>;

TEST(RunLoop, ARunTellsWhatItDoesFileByFile) {
    RunScene scene;
    scene.picture("a.jpg", baldEagle, 0.9);
    scene.picture("b.jpg", robin, 0.25);
    scene.picture("c.jpg", baldEagle, 0.75);
    const auto report = scene.run();
    EXPECT_EQ(report.lines(),
              (Texts{"progress 0/3 a.jpg {} 0 uncertain", "prediction Haliaeetus_leucocephalus 0.9",
                     "progress 1/3 b.jpg {Bald Eagle: 1} 0 uncertain",
                     "prediction Erithacus_rubecula 0.25 (Low confidence — review _Uncertain/)",
                     "progress 2/3 c.jpg {Bald Eagle: 1} 1 uncertain",
                     "prediction Haliaeetus_leucocephalus 0.75", "finished completed, last 2"}));
    EXPECT_EQ(scene.filed(), (Names{"Bald Eagle/a.jpg", "Bald Eagle/c.jpg", "_Uncertain/b.jpg",
                                    "_Uncertain/review.csv", "_Uncertain/review.html"}));

    SortResult expected;
    expected.sorted = 2;
    expected.unidentified = expected.lowConfidence = 1;
    expected.processed = expected.total = 3;
    expected.perSpecies = {{"Bald Eagle", 2}};
    expected.elapsedSeconds = report.sort().elapsedSeconds;
    EXPECT_EQ(report.sort(), expected);
    EXPECT_GT(report.sort().elapsedSeconds, 0);
}

TEST(RunLoop, AnEmptyListHasNoProgressAndTakesTheRecordAway) {
    RunScene scene;
    writeFile(scene.input.destination / "_Paused/resume.json", "{}");
    const auto report = scene.run();
    EXPECT_EQ(report.lines(), Texts{"finished completed, last -1"});
    EXPECT_EQ(report.sort().processed, 0);
    EXPECT_FALSE(report.sort().stopped);
    EXPECT_EQ(scene.filed(), Names());
}

TEST(RunLoop, AStartAtTheEndOfTheListFinishesWithTheCarriedTotals) {
    RunScene scene;
    scene.picture("IMG_1.jpg", robin, 0.9);
    scene.picture("IMG_2.jpg", robin, 0.4);
    scene.picture("IMG_3.jpg", robin, 0.9);
    const auto before = scene.run();

    writeFile(scene.input.destination / "_Paused/resume.json", "{}");
    scene.input.startIndex = 3;
    scene.input.options.burstInheritance = BurstInheritance::confirmedAndCorrected;
    const auto report = scene.run();
    EXPECT_EQ(report.lines(), Texts{"finished completed, last 2"});
    SortResult expected = before.sort();
    EXPECT_GE(report.sort().elapsedSeconds, expected.elapsedSeconds);
    expected.elapsedSeconds = report.sort().elapsedSeconds;
    EXPECT_EQ(report.sort(), expected);
    EXPECT_EQ(scene.filed(),
              (Names{"European Robin/IMG_1.jpg", "European Robin/IMG_3.jpg", "_Uncertain/IMG_2.jpg",
                     "_Uncertain/review.csv", "_Uncertain/review.html"}));
}

TEST(RunLoop, ARawAndItsJpegAreOneShot) {
    RunScene scene;
    for (int i = 0; i < 4; ++i) scene.picture("x" + std::to_string(i) + ".jpg", robin, 0.9);
    scene.picture("y.jpg", baldEagle, 0.6);
    scene.raw("y.dng", grebe, 0.7);
    const auto report = scene.run();
    const Texts lines = report.lines();
    EXPECT_EQ(Texts(lines.begin() + 8, lines.end()),
              (Texts{"progress 4/6 y.jpg {European Robin: 4} 0 uncertain",
                     "prediction Aechmophorus_clarkii 0.7",
                     "progress 5/6 y.dng {Clark's Grebe: 1, European Robin: 4} 0 uncertain",
                     "finished completed, last 5"}));
    EXPECT_EQ(report.sort().processed, 6);
    EXPECT_EQ(report.sort().sorted, 5);
    EXPECT_TRUE(scene.filed().contains("Clark's Grebe/y.jpg"));
    EXPECT_TRUE(scene.filed().contains("Clark's Grebe/y.dng"));
}

TEST(RunLoop, WhenTheJpegCanNotBeReadAndTheRawAnswersNoErrorIsCounted) {
    RunScene scene;
    scene.junk("a.jpg");
    scene.raw("a.dng", robin, 0.9);
    const auto report = scene.run();
    EXPECT_EQ(report.sort().errors, 0);
    EXPECT_EQ(report.sort().sorted, 1);
    EXPECT_EQ(report.lines("prediction").size(), 1U);
    EXPECT_EQ(report.lines("failure").size(), 0U);
    EXPECT_EQ(scene.filed(),
              (std::set<std::string>{"European Robin/a.jpg", "European Robin/a.dng"}));
}

TEST(RunLoop, AResumeBetweenALeadingFileAndItsFollowerSkipsTheFollowerStill) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.9);
    scene.raw("a.dng", robin, 0.9);
    scene.picture("b.jpg", robin, 0.9);
    scene.input.startIndex = 1;
    const auto report = scene.run();
    EXPECT_EQ(report.lines(),
              (Texts{"progress 1/3 a.dng {} 0 uncertain", "progress 2/3 b.jpg {} 0 uncertain",
                     "prediction Erithacus_rubecula 0.9", "finished completed, last 2"}));
    EXPECT_EQ(report.sort().processed, 2);
    EXPECT_EQ(scene.filed(), Names{"European Robin/b.jpg"});
}

TEST(RunLoop, AConfidenceExactlyAtTheGateIsCalled) {
    RunScene scene;
    scene.picture("at.jpg", robin, 0.5375);
    scene.picture("under.jpg", robin, 0.53749999);
    const auto report = scene.run();
    EXPECT_EQ(report.lines("prediction")[0], "prediction Erithacus_rubecula 0.5375");
    EXPECT_EQ(report.sort().sorted, 1);
    EXPECT_EQ(report.sort().lowConfidence, 1);
    EXPECT_TRUE(scene.filed().contains("European Robin/at.jpg"));
    EXPECT_TRUE(scene.filed().contains("_Uncertain/under.jpg"));
}

TEST(RunLoop, TheGateFollowsTheSlider) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.31);
    scene.input.options.confidence = 0;
    EXPECT_EQ(scene.run().sort().sorted, 1);
    scene.input.options.confidence = 100;
    EXPECT_EQ(scene.run().sort().sorted, 0);
}

TEST(RunLoop, AShotThatCanNotBeClassifiedIsAnErrorAndTheRunGoesOn) {
    RunScene scene;
    scene.junk("a.jpg");
    scene.failingPicture("b.jpg", std::make_exception_ptr(BirdIdentifierError::imageTooSmall()));
    scene.failingPicture("c.jpg", std::make_exception_ptr(std::runtime_error("no idea")));
    scene.failingPicture("d.jpg", std::make_exception_ptr(std::bad_alloc()));
    scene.picture("e.jpg", robin, 0.9);
    const auto report = scene.run();
    EXPECT_EQ(report.lines("failure"), (Texts{"failure The file couldn't be read.",
                                              "failure Image is smaller than 224×224 pixels.",
                                              "failure no idea", "failure std::bad_alloc"}));
    EXPECT_EQ(report.sort().errors, 4);
    EXPECT_EQ(report.sort().processed, 5);
    EXPECT_EQ(report.sort().sorted, 1);
    EXPECT_EQ(scene.filed(), Names{"European Robin/e.jpg"});
}

TEST(RunLoop, AShotThatCanNotBeFiledIsAnErrorAfterItsPrediction) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.9);
    scene.picture("b.jpg", robin, 0.2);
    scene.picture("c.jpg", robin, 0.9);
    scene.files().fail(Operation::copy, named("a.jpg"), notPermitted());
    scene.files().onAttempt([](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::copy && attempt.path.filename() == "b.jpg") {
            throw std::runtime_error("a cable came loose");
        }
    });
    const auto report = scene.run();
    EXPECT_EQ(report.lines(),
              (Texts{"progress 0/3 a.jpg {} 0 uncertain", "prediction Erithacus_rubecula 0.9",
                     "failure It couldn't be done: Permission denied",
                     "progress 1/3 b.jpg {} 0 uncertain",
                     "prediction Erithacus_rubecula 0.2 (Low confidence — review _Uncertain/)",
                     "failure a cable came loose", "progress 2/3 c.jpg {} 0 uncertain",
                     "prediction Erithacus_rubecula 0.9", "finished completed, last 2"}));
    EXPECT_EQ(report.sort().errors, 2);
    EXPECT_EQ(report.sort().lowConfidence, 0);
    EXPECT_EQ(report.sort().unidentified, 0);
    EXPECT_EQ(scene.engine().reviewRows().size(), 0U);
}

TEST(RunLoop, WarningsAreKeptInTheOrderInWhichTheyArose) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.9);
    scene.raw("a.dng", robin, 0.8);
    scene.picture("b.jpg", robin, 0.9);
    scene.sidecar("b.xmp");
    scene.files().fail(Operation::copy, named("a.dng"), noSpaceLeft());
    scene.files().fail(Operation::copy, named("b.xmp"), notPermitted());
    const auto report = scene.run();
    EXPECT_EQ(report.sort().warnings,
              (Texts{"Filed a.jpg but not a.dng: It couldn't be written: No space left on device",
                     "Kept b.xmp where it was — couldn't file it with b.jpg: It couldn't be done: "
                     "Permission denied"}));
    // Lack of space for a partner does not end the run: the next shot will meet it.
    EXPECT_EQ(report.sort().stopReason, StopReason::completed());
    EXPECT_EQ(report.sort().sorted, 2);
}

TEST(RunLoop, ANewRunForgetsTheOneBefore) {
    RunScene scene;
    scene.input.options.rename = true;
    scene.picture("a.jpg", robin, 0.9);
    scene.picture("b.jpg", robin, 0.2);
    scene.run();
    const auto report = scene.run();
    EXPECT_EQ(report.sort().sorted, 1);
    EXPECT_EQ(report.sort().unidentified, 1);
    EXPECT_EQ(report.sort().processed, 2);
    EXPECT_EQ(scene.engine().reviewRows().size(), 1U);
    // Its numbering begins at 1 as well, and overwrites nothing.
    EXPECT_TRUE(scene.filed().contains("European Robin/European_Robin_001_1.jpg"));
}

TEST(RunLoop, ANewEngineThatResumesBeginsItsCountsAtZero) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.9);
    scene.picture("b.jpg", robin, 0.9);
    scene.input.startIndex = 1;
    const auto report = scene.run();
    EXPECT_EQ(report.sort().sorted, 1);
    EXPECT_EQ(report.sort().processed, 1);
    EXPECT_EQ(report.sort().total, 2);
    EXPECT_EQ(report.sortFinished().lastProcessedIndex, 1);
}

TEST(RunLoop, TheReaderMayGoAndTheRunGoesOn) {
    RunScene scene;
    for (int i = 0; i < 5; ++i) scene.picture("a" + std::to_string(i) + ".jpg", robin, 0.9);
    scene.engine().run(scene.input);
    scene.input.startIndex = 5;
    EXPECT_EQ(scene.run().sort().sorted, 5);
}

TEST(RunLoop, AStartBeyondTheListEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    RunScene scene;
    scene.input.startIndex = 1;
    EXPECT_DEATH(scene.engine().run(scene.input), "startIndex lies beyond the list");
}

}  // namespace
}  // namespace ornivo
