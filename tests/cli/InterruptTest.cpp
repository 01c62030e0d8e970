#include "cli/Interrupt.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>

namespace ornivo::cli {

namespace {

std::shared_ptr<const Wakeup> newWakeup() {
    return std::make_shared<const Wakeup>();
}

using Clock = std::chrono::steady_clock;

/// Long enough that a wait of this length would be seen as a hang.
constexpr int forever = 60'000;

}  // namespace

TEST(Interrupt, TheFirstSignalIsOnlyNotedAndWakesWhoeverWaits) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto wakeup = newWakeup();
        const Interrupt interrupt(wakeup);
        EXPECT_FALSE(interrupt.requested());
        std::raise(signal);
        EXPECT_TRUE(interrupt.requested());
        const auto before = Clock::now();
        wakeup->wait(forever);
        EXPECT_LT(Clock::now() - before, std::chrono::seconds(10));
    }
}

TEST(Interrupt, TheSecondSignalOfAnyKindEndsTheProgram) {
    for (const int second : {SIGINT, SIGTERM, SIGHUP}) {
        EXPECT_EXIT(
            {
                const Interrupt interrupt(newWakeup());
                std::raise(SIGINT);
                std::raise(second);
                std::_Exit(0);
            },
            ::testing::KilledBySignal(second), "");
    }
}

TEST(Interrupt, AfterItsLifeSignalsActAsTheyDidBefore) {
    EXPECT_EXIT(
        {
            { const Interrupt interrupt(newWakeup()); }
            std::raise(SIGINT);
            std::_Exit(0);
        },
        ::testing::KilledBySignal(SIGINT), "");
}

TEST(Interrupt, ASignalThatTheStarterIgnoresStaysIgnored) {
    EXPECT_EXIT(
        {
            std::signal(SIGHUP, SIG_IGN);
            const Interrupt interrupt(newWakeup());
            std::raise(SIGHUP);
            const bool isIgnored = !interrupt.requested();
            std::raise(SIGINT);
            std::raise(SIGHUP);
            std::_Exit(isIgnored && interrupt.requested() ? 7 : 0);
        },
        ::testing::ExitedWithCode(7), "");
}

TEST(Interrupt, ANewOneKnowsNothingOfAnEarlierRequest) {
    {
        const Interrupt first(newWakeup());
        std::raise(SIGINT);
    }
    EXPECT_FALSE(Interrupt(newWakeup()).requested());
}

}  // namespace ornivo::cli
