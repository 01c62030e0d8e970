#include "app/TerminationSignals.h"

#include <gtest/gtest.h>

#include <csignal>

#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;

TEST(TerminationSignals, BecomeEventsOfTheMainThread) {
    TerminationSignals termination;
    const Count received(&termination, &TerminationSignals::received);
    int expected = 0;
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        std::raise(number);
        EXPECT_EQ(received.times(), expected);
        ++expected;
        EXPECT_TRUE(waitUntil([&] { return received.times() == expected; }));
    }
}

TEST(TerminationSignals, EndTheProcessAsBeforeOnceItHasGone) {
    { const TerminationSignals termination; }
    EXPECT_EXIT(std::raise(SIGTERM), ::testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace ornivo::app
