#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <future>
#include <random>
#include <thread>

#include "support/RunScene.h"

namespace ornivo {
namespace {

using namespace testing;
using namespace std::chrono_literals;
using Operation = FailingFiles::Operation;
using Texts = std::vector<std::string>;

/// A run that pauses itself while its file with this index is being filed.
class RunControl : public ::testing::Test {
protected:
    EventStream<SortEngine::Event> runAndPauseDuring(int index, int files = 10) {
        for (int i = 0; i < files; ++i) {
            scene_.picture("a" + std::to_string(i) + ".jpg", robin, 0.9);
        }
        const std::string name = "a" + std::to_string(index) + ".jpg";
        scene_.files().onAttempt([this, name](const FailingFiles::Attempt& attempt) {
            if (attempt.operation != Operation::copy || attempt.path.filename() != name) return;
            if (!hasPaused_.exchange(true)) scene_.engine().pause();
        });
        return scene_.engine().run(scene_.input);
    }

    /// The events up to the pause, which comes after so many of progress.
    RunReport readToThePause(EventStream<SortEngine::Event>& stream, std::size_t progresses) {
        RunReport report;
        while (report.lines("progress").size() < progresses ||
               report.lines().back().starts_with("progress")) {
            report.events.push_back(*stream.next());
        }
        while (scene_.controller().state() != JobController::State::paused) {
            std::this_thread::yield();
        }
        return report;
    }

    /// A run of two files that gets past the first only once `hasPressed_` is set.
    EventStream<SortEngine::Event> runWaitingForAPress() {
        scene_.picture("a.jpg", robin, 0.9);
        scene_.picture("b.jpg", robin, 0.9);
        scene_.files().onAttempt([this](const FailingFiles::Attempt& attempt) {
            if (attempt.path.filename() == "a.jpg") hasPressed_.wait(false);
        });
        return scene_.engine().run(scene_.input);
    }

    void press(void (SortEngine::*button)()) {
        (scene_.engine().*button)();
        hasPressed_ = true;
        hasPressed_.notify_all();
    }

    std::atomic<bool> hasPressed_ = false;
    std::atomic<bool> hasPaused_ = false;
    RunScene scene_;
};

TEST_F(RunControl, AFileBegunIsFinishedAndTheNextWaitsForResume) {
    auto stream = runAndPauseDuring(7);
    const auto before = readToThePause(stream, 8);
    EXPECT_EQ(before.lines().back(), "prediction Erithacus_rubecula 0.9");
    while (!scene_.filed().contains("European Robin/a7.jpg")) std::this_thread::yield();
    std::this_thread::sleep_for(100ms);
    EXPECT_EQ(stream.tryNext(), std::nullopt);
    EXPECT_EQ(scene_.controller().state(), JobController::State::paused);

    scene_.engine().resume();
    const auto after = readToEnd(stream);
    EXPECT_EQ(after.lines().front(), "progress 8/10 a8.jpg {European Robin: 8} 0 uncertain");
    EXPECT_EQ(after.lines().back(), "finished completed, last 9");
    EXPECT_EQ(scene_.controller().state(), JobController::State::idle);
}

TEST_F(RunControl, AStopDuringAPauseEndsTheRunWithoutAnotherProgress) {
    auto stream = runAndPauseDuring(2);
    readToThePause(stream, 3);
    scene_.engine().cancel();
    const auto after = readToEnd(stream);
    EXPECT_EQ(after.lines(), Texts{"finished userCancelled, last 2"});
    EXPECT_EQ(after.sort().sorted, 3);
}

TEST_F(RunControl, APauseRightAfterTheStartIsNotLost) {
    auto stream = runWaitingForAPress();
    press(&SortEngine::pause);
    std::this_thread::sleep_for(100ms);
    EXPECT_EQ(scene_.controller().state(), JobController::State::paused);
    scene_.engine().resume();
    EXPECT_EQ(readToEnd(stream).lines().back(), "finished completed, last 1");
}

TEST_F(RunControl, AStopRightAfterTheStartIsNotLost) {
    auto stream = runWaitingForAPress();
    press(&SortEngine::cancel);
    EXPECT_EQ(readToEnd(stream).sortFinished().stopReason, StopReason::userCancelled());
}

TEST_F(RunControl, APauseLeftBehindByNoRunDoesNotHoldUpTheNext) {
    scene_.picture("a.jpg", robin, 0.9);
    scene_.engine().pause();
    EXPECT_EQ(scene_.run().lines().back(), "finished completed, last 0");
}

TEST_F(RunControl, ASecondRunWaitsForTheFirst) {
    auto first = runAndPauseDuring(0, 2);
    readToThePause(first, 1);
    auto second = std::async(std::launch::async,
                             [&] { return readToEnd(scene_.engine().run(scene_.input)); });
    EXPECT_EQ(second.wait_for(100ms), std::future_status::timeout);
    scene_.engine().resume();
    EXPECT_EQ(readToEnd(first).lines().back(), "finished completed, last 1");
    EXPECT_EQ(second.get().lines().back(), "finished completed, last 1");
}

TEST_F(RunControl, AnEngineThatGoesEndsItsRunAtTheNextFile) {
    auto stream = runAndPauseDuring(1);
    readToThePause(stream, 2);
    scene_.closeEngine();
    EXPECT_EQ(readToEnd(stream).lines(), Texts{"finished userCancelled, last 1"});
}

TEST_F(RunControl, HoweverItIsPausedResumedAndStoppedEveryRunEndsWithOneFinishedEvent) {
    constexpr int runs = 10000;
    for (int i = 0; i < 3; ++i) scene_.input.paths.push_back(scene_.source() / "missing.jpg");
    SortEngine& engine = scene_.engine();
    const std::array buttons{&SortEngine::pause, &SortEngine::resume, &SortEngine::cancel};
    std::mt19937 random(20240517);
    const auto press = [&](int most) {
        for (auto left = random() % static_cast<unsigned>(most + 1); left > 0; --left) {
            (engine.*buttons[random() % buttons.size()])();
            if (random() % 4 == 0) std::this_thread::yield();
        }
    };
    for (int run = 0; run < runs; ++run) {
        auto stream = engine.run(scene_.input);
        auto otherHand = run % 2 == 0 ? std::jthread([&engine] {
            engine.pause();
            engine.resume();
        })
                                      : std::jthread();
        press(6);
        if (otherHand.joinable()) otherHand.join();
        random() % 2 == 0 ? engine.resume() : engine.cancel();
        const auto report = readToEnd(stream);
        ASSERT_EQ(report.lines("finished").size(), 1U) << "run " << run;
        ASSERT_TRUE(report.lines().back().starts_with("finished")) << "run " << run;
        ASSERT_EQ(report.sort().processed, static_cast<int>(report.lines("progress").size()));
    }
}

}  // namespace
}  // namespace ornivo
