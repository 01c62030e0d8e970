#include <gtest/gtest.h>

#include <stdexcept>

#include "support/RunScene.h"

namespace ornivo {
namespace {

using namespace testing;
using Operation = FailingFiles::Operation;

/// A long run of everything that can happen to a shot, whose course is to be the same however
/// many shots are classified ahead.
class RunAhead {
public:
    explicit RunAhead(unsigned workers)
        : scene_(std::make_shared<ScriptedIdentifier>(), {}, workers) {
        for (int i = 0; i < 8; ++i) addRound(std::to_string(100 + i));
        scene_.input.options.burstInheritance = BurstInheritance::confirmedAndCorrected;
    }

    RunScene& scene() { return scene_; }

private:
    void addRound(const std::string& number) {
        scene_.picture("a" + number + ".jpg", baldEagle, 0.9);
        scene_.raw("a" + number + ".dng", baldEagle, 0.8);
        scene_.picture("b" + number + ".jpg", guesses({{robin.label, 0.3}, {tit.label, 0.2}}));
        scene_.junk("c" + number + ".jpg");
        scene_.picture("d" + number + ".jpg", robin, 0.6);
        scene_.failingPicture("e" + number + ".jpg",
                              std::make_exception_ptr(std::runtime_error("e" + number)));
        scene_.junk("f" + number + ".mov");
        scene_.picture("g" + number + ".jpg", grebe, 0.5375);
        scene_.sidecar("g" + number + ".xmp");
    }

    RunScene scene_;
};

/// The result without the time that it took.
SortResult timeless(SortResult result) {
    result.elapsedSeconds = 0;
    return result;
}

class RunAheadWith : public ::testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Workers, RunAheadWith, ::testing::Values(1U, 2U, 7U));

TEST_P(RunAheadWith, TheEventsAndTheFilesAreThoseOfAPlainRun) {
    RunAhead plain(0);
    RunAhead ahead(GetParam());
    for (RunAhead* run : {&plain, &ahead}) {
        run->scene().files().fail(Operation::copy, named("d103.jpg"), notPermitted());
        run->scene().files().fail(Operation::copy, named("a105.dng"), notPermitted());
    }
    const auto expected = plain.scene().run();
    const auto actual = ahead.scene().run();
    EXPECT_EQ(actual.lines(), expected.lines());
    EXPECT_EQ(timeless(actual.sort()), timeless(expected.sort()));
    EXPECT_EQ(actual.sort().errors, 25);
    EXPECT_EQ(ahead.scene().filed(), plain.scene().filed());
    EXPECT_EQ(ahead.scene().contents("_Uncertain/review.csv"),
              plain.scene().contents("_Uncertain/review.csv"));
}

TEST_P(RunAheadWith, AFullDiskComesAtTheSameFileAndTheResumeGoesOnAlike) {
    RunAhead plain(0);
    RunAhead ahead(GetParam());
    for (RunAhead* run : {&plain, &ahead}) {
        run->scene().files().fail(Operation::copy, nth(21), noSpaceLeft());
    }
    const auto expected = plain.scene().run();
    const auto actual = ahead.scene().run();
    EXPECT_EQ(actual.lines(), expected.lines());
    EXPECT_EQ(actual.sort().stopReason, StopReason::diskFull());
    for (RunAhead* run : {&plain, &ahead}) {
        run->scene().input.startIndex =
            static_cast<std::size_t>(expected.sortFinished().lastProcessedIndex) + 1;
    }
    const auto resumedPlain = plain.scene().run();
    const auto resumedAhead = ahead.scene().run();
    EXPECT_EQ(resumedAhead.lines(), resumedPlain.lines());
    EXPECT_EQ(timeless(resumedAhead.sort()), timeless(resumedPlain.sort()));
    EXPECT_EQ(ahead.scene().filed(), plain.scene().filed());
}

TEST_P(RunAheadWith, AStopAbandonsWhatHasNotBegun) {
    const unsigned workers = GetParam();
    RunScene scene(std::make_shared<ScriptedIdentifier>(), {}, workers);
    for (int i = 0; i < 60; ++i) scene.picture("a" + std::to_string(i) + ".jpg", robin, 0.9);
    scene.files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::copy && attempt.number == 2) scene.engine().cancel();
    });
    EXPECT_EQ(scene.run().sort().sorted, 2);
    EXPECT_LE(scene.identifier().calls().size(), 2 + 2 * std::size_t{workers});
}

}  // namespace
}  // namespace ornivo
