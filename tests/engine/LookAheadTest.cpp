#include "engine/LookAhead.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <new>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>

namespace ornivo {
namespace {

using namespace std::chrono_literals;

int squared(std::size_t number) {
    return static_cast<int>(number * number);
}

class LookAheadWith : public ::testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Workers, LookAheadWith, ::testing::Values(0U, 1U, 2U, 5U));

TEST_P(LookAheadWith, ResultsComeInTheListsOrderWhoeverWasFirst) {
    constexpr std::size_t count = 200;
    LookAhead<int> ahead(count, GetParam(), [](std::size_t number) {
        if (number % 7 == 0) std::this_thread::sleep_for(1ms);
        return squared(number);
    });
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(ahead.take(), squared(i));
}

TEST_P(LookAheadWith, AFailureIsRaisedToWhoeverTakesThatResultAndNoOther) {
    LookAhead<int> ahead(5, GetParam(), [](std::size_t number) {
        if (number == 2) throw std::runtime_error("number two");
        if (number == 3) throw std::bad_alloc();
        return squared(number);
    });
    EXPECT_EQ(ahead.take(), 0);
    EXPECT_EQ(ahead.take(), 1);
    try {
        ahead.take();
        ADD_FAILURE() << "nothing was raised";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), std::string("number two"));
    }
    EXPECT_THROW(ahead.take(), std::bad_alloc);
    EXPECT_EQ(ahead.take(), 16);
}

TEST_P(LookAheadWith, AnEmptyListIsNothingToDo) {
    const LookAhead<int> ahead(0, GetParam(), squared);
}

TEST_P(LookAheadWith, NoMoreIsBegunThanTheWindowHolds) {
    constexpr std::size_t count = 100;
    std::atomic<std::size_t> begun = 0;
    LookAhead<int> ahead(count, GetParam(), [&](std::size_t number) {
        ++begun;
        return squared(number);
    });
    for (std::size_t taken = 0; taken < count; ++taken) {
        if (taken % 10 == 0) std::this_thread::sleep_for(2ms);
        EXPECT_LE(begun, taken + ahead.window());
        ahead.take();
    }
    EXPECT_EQ(begun, count);
}

TEST_P(LookAheadWith, WhatIsOutstandingIsAbandoned) {
    std::atomic<std::size_t> begun = 0;
    {
        LookAhead<int> ahead(1000000, GetParam(), [&](std::size_t number) {
            ++begun;
            return squared(number);
        });
        EXPECT_EQ(ahead.take(), 0);
    }
    EXPECT_GE(begun, 1U);
    EXPECT_LE(begun, 1 + 2 * std::size_t{GetParam()});
}

TEST(LookAhead, TasksRunOnAsManyThreadsAsThereAreWorkers) {
    constexpr unsigned workers = 3;
    std::mutex mutex;
    std::set<std::thread::id> threads;
    LookAhead<int> ahead(workers, workers, [&](std::size_t number) {
        // Each waits for the others, which needs a thread for each.
        const auto isAlone = [&] {
            const std::lock_guard lock(mutex);
            threads.insert(std::this_thread::get_id());
            return threads.size() < workers;
        };
        while (isAlone()) std::this_thread::yield();
        return squared(number);
    });
    for (unsigned i = 0; i < workers; ++i) EXPECT_EQ(ahead.take(), squared(i));
    EXPECT_EQ(threads.size(), workers);
    EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
}

TEST(LookAhead, WithoutWorkersATaskRunsWhenItsResultIsTaken) {
    std::size_t begun = 0;
    LookAhead<int> ahead(3, 0, [&](std::size_t number) {
        ++begun;
        return squared(number);
    });
    EXPECT_EQ(begun, 0U);
    ahead.take();
    EXPECT_EQ(begun, 1U);
}

}  // namespace
}  // namespace ornivo
