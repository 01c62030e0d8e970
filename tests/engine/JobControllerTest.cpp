#include "engine/JobController.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace ornivo {
namespace {

using State = JobController::State;
using namespace std::chrono_literals;

/// Long enough that a waiter which will not wake has been given its chance.
constexpr auto moment = 50ms;

/// `check` on a thread of its own.
std::future<bool> checkElsewhere(JobController& controller) {
    return std::async(std::launch::async, [&] { return controller.check(); });
}

bool isWaiting(const std::future<bool>& check) {
    return check.wait_for(moment) == std::future_status::timeout;
}

TEST(JobController, IsIdleAtFirst) {
    const JobController controller;
    EXPECT_EQ(controller.state(), State::idle);
    EXPECT_FALSE(controller.isStopped());
}

TEST(JobController, EveryOperationLeadsToItsStateFromAnyState) {
    struct Step {
        void (JobController::*operation)();
        State state;
    };
    const Step steps[] = {{&JobController::reset, State::running},
                          {&JobController::markIdle, State::idle},
                          {&JobController::pause, State::paused},
                          {&JobController::resume, State::running},
                          {&JobController::stop, State::stopped}};
    for (const Step& first : steps) {
        for (const Step& second : steps) {
            JobController controller;
            (controller.*first.operation)();
            EXPECT_EQ(controller.state(), first.state);
            (controller.*second.operation)();
            EXPECT_EQ(controller.state(), second.state);
            EXPECT_EQ(controller.isStopped(), second.state == State::stopped);
        }
    }
}

TEST(JobController, ACheckWhileRunningAnswersTrueAtOnce) {
    JobController controller;
    controller.reset();
    EXPECT_TRUE(controller.check());
}

TEST(JobController, ACheckWhileStoppedAnswersFalseAtOnce) {
    JobController controller;
    controller.stop();
    EXPECT_FALSE(controller.check());
}

TEST(JobController, AParkedLoopGoesOnAfterResume) {
    JobController controller;
    controller.pause();
    auto check = checkElsewhere(controller);
    EXPECT_TRUE(isWaiting(check));
    controller.resume();
    EXPECT_TRUE(check.get());
}

TEST(JobController, AParkedLoopPassesAfterResumeAlsoWhenAPauseFollowsAtOnce) {
    JobController controller;
    controller.pause();
    for (int i = 0; i < 20; ++i) {
        auto check = checkElsewhere(controller);
        EXPECT_TRUE(isWaiting(check));
        controller.resume();
        controller.pause();
        if (check.wait_for(20 * moment) == std::future_status::timeout) {
            controller.stop();
            FAIL() << "it waits for another resume";
        }
        EXPECT_TRUE(check.get());
    }
}

TEST(JobController, PauseAndThenStopWakesTheParkedLoopWhichEnds) {
    JobController controller;
    controller.pause();
    auto check = checkElsewhere(controller);
    EXPECT_TRUE(isWaiting(check));
    controller.stop();
    EXPECT_FALSE(check.get());
    EXPECT_TRUE(controller.isStopped());
}

TEST(JobController, AStopWithNoLoopParkedIsSeenAtTheNextCheck) {
    JobController controller;
    controller.reset();
    EXPECT_TRUE(controller.check());
    controller.stop();
    EXPECT_FALSE(controller.check());
}

TEST(JobController, AResumeWithNothingParkedMeansThatTheLoopDoesNotPark) {
    JobController controller;
    controller.pause();
    controller.resume();
    EXPECT_EQ(controller.state(), State::running);
    EXPECT_TRUE(controller.check());
}

TEST(JobController, TheLoopSeesOnlyTheLastOfSeveralChanges) {
    JobController controller;
    controller.reset();
    controller.pause();
    controller.resume();
    controller.pause();
    auto check = checkElsewhere(controller);
    EXPECT_TRUE(isWaiting(check));
    controller.resume();
    EXPECT_TRUE(check.get());
}

TEST(JobController, AResumeTakesBackAStopThatTheLoopHasNotSeen) {
    JobController controller;
    controller.reset();
    controller.stop();
    controller.resume();
    EXPECT_TRUE(controller.check());
}

TEST(JobController, APauseOutsideARunIsReplacedByTheNextReset) {
    JobController controller;
    controller.pause();
    controller.reset();
    EXPECT_TRUE(controller.check());
}

TEST(JobController, AnAbandonedCallerDoesNotWait) {
    JobController controller;
    controller.pause();
    std::stop_source source;
    auto check = std::async(std::launch::async,
                            [&, token = source.get_token()] { return controller.check(token); });
    EXPECT_TRUE(isWaiting(check));
    source.request_stop();
    EXPECT_FALSE(check.get());
    EXPECT_EQ(controller.state(), State::paused);

    controller.resume();
    EXPECT_FALSE(controller.check(source.get_token()));
}

TEST(JobController, NoWakeUpIsLostHoweverQuicklyTheStateChanges) {
    constexpr int rounds = 2000;
    JobController controller;
    controller.reset();
    std::atomic<int> passed = 0;
    const std::jthread loop([&] {
        while (controller.check()) ++passed;
    });
    for (int i = 0; i < rounds; ++i) {
        controller.pause();
        controller.resume();
    }
    const int before = passed;
    while (passed == before) std::this_thread::yield();
    controller.stop();
}

}  // namespace
}  // namespace ornivo
