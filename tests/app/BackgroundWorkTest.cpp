#include "app/BackgroundWork.h"

#include <gtest/gtest.h>
#include <sched.h>

#include <QCoreApplication>
#include <QThread>
#include <atomic>
#include <latch>
#include <optional>
#include <vector>

#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
using Priority = BackgroundWork::Priority;

TEST(BackgroundWork, WorksElsewhereAndHandsBackHere) {
    BackgroundWork work;
    const QThread* here = QThread::currentThread();
    std::optional<bool> workedElsewhere;
    work.run(
        Priority::userInitiated, [here] { return QThread::currentThread() != here; },
        [&](bool answer) {
            EXPECT_EQ(QThread::currentThread(), here);
            workedElsewhere = answer;
        });
    EXPECT_EQ(workedElsewhere, std::nullopt);
    ASSERT_TRUE(waitUntil([&] { return workedElsewhere.has_value(); }));
    EXPECT_TRUE(*workedElsewhere);
}

TEST(BackgroundWork, ASlowOneDoesNotHoldUpAQuickOne) {
    BackgroundWork work;
    std::latch mayEnd(1);
    std::vector<int> ended;
    const auto take = [&](int number) { ended.push_back(number); };
    work.run(
        Priority::utility,
        [&] {
            mayEnd.wait();
            return 1;
        },
        take);
    work.run(
        Priority::userInitiated, [] { return 2; }, take);
    ASSERT_TRUE(waitUntil([&] { return !ended.empty(); }));
    mayEnd.count_down();
    ASSERT_TRUE(waitUntil([&] { return ended.size() == 2; }));
    EXPECT_EQ(ended, (std::vector{2, 1}));
}

TEST(BackgroundWork, WhatIsMerelyUsefulGivesWayToAllElse) {
    BackgroundWork work;
    std::vector<int> policies;
    const auto policy = [] { return ::sched_getscheduler(0); };
    const auto take = [&](int found) { policies.push_back(found); };
    work.run(Priority::utility, policy, take);
    ASSERT_TRUE(waitUntil([&] { return policies.size() == 1; }));
    work.run(Priority::userInitiated, policy, take);
    ASSERT_TRUE(waitUntil([&] { return policies.size() == 2; }));
    EXPECT_EQ(policies, (std::vector{SCHED_IDLE, SCHED_OTHER}));
}

TEST(BackgroundWork, NothingIsHandedBackOnceItHasGone) {
    std::atomic<int> worked = 0;
    int taken = 0;
    {
        BackgroundWork work;
        work.run(
            Priority::userInitiated, [&] { return ++worked; }, [&](int) { ++taken; });
        while (worked == 0) QThread::yieldCurrentThread();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(worked, 1);
    EXPECT_EQ(taken, 0);
}

}  // namespace
}  // namespace ornivo::app
