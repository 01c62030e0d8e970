#include "cli/Wakeup.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace ornivo::cli {

namespace {

using Clock = std::chrono::steady_clock;

/// Long enough that a wait of this length would be seen as a hang.
constexpr int forever = 60'000;

}  // namespace

TEST(Wakeup, AWaitEndsAtACallFromAnotherThreadOrByItself) {
    const Wakeup wakeup;
    wakeup.wait(1);
    std::thread other([&] { wakeup.wake(); });
    const auto before = Clock::now();
    wakeup.wait(forever);
    EXPECT_LT(Clock::now() - before, std::chrono::seconds(10));
    other.join();
}

TEST(Wakeup, SeveralCallsAreOneWakeUp) {
    const Wakeup wakeup;
    wakeup.wake();
    wakeup.wake();
    wakeup.wait(forever);
    const auto before = Clock::now();
    wakeup.wait(20);
    EXPECT_GE(Clock::now() - before, std::chrono::milliseconds(15));
}

}  // namespace ornivo::cli
