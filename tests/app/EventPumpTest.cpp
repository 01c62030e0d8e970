#include "app/EventPump.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <chrono>
#include <thread>

#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
using Stream = EventPump::Stream;
using Event = EventPump::Event;

Event numbered(int number) {
    return SortEngine::DiskFull{number};
}

/// Follows a stream and notes what comes of it.
struct Reader {
    void follow(EventPump& pump, const Stream& stream) {
        pump.follow(
            stream,
            [this](const std::vector<Event>& events) {
                ++batches;
                for (const Event& event : events) {
                    numbers.push_back(std::get<SortEngine::DiskFull>(event).atIndex);
                }
            },
            [this] { ++ends; });
    }

    std::vector<int> numbers;
    int batches = 0;
    int ends = 0;
};

std::vector<int> upTo(int count) {
    std::vector<int> numbers(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) numbers[static_cast<std::size_t>(i)] = i;
    return numbers;
}

TEST(EventPump, BringsEveryEventOfABusyWriterInOrder) {
    constexpr int count = 20000;
    EventPump pump;
    Reader reader;
    Stream stream;
    reader.follow(pump, stream);
    std::jthread writer([stream]() mutable {
        for (int i = 0; i < count; ++i) stream.emit(numbered(i));
        stream.finish();
    });
    ASSERT_TRUE(waitUntil([&] { return reader.ends == 1; }));
    EXPECT_EQ(reader.numbers, upTo(count));
    EXPECT_FALSE(pump.isFollowing());
}

TEST(EventPump, LeavesTheThreadToTheScreenBetweenTwoBatches) {
    EventPump pump;
    Reader reader;
    Stream stream;
    reader.follow(pump, stream);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 2000; ++i) {
        stream.emit(numbered(i));
        QCoreApplication::processEvents();
    }
    stream.finish();
    ASSERT_TRUE(waitUntil([&] { return reader.ends == 1; }));
    const std::chrono::duration<double, std::milli> passed =
        std::chrono::steady_clock::now() - start;
    EXPECT_LE(reader.batches, passed.count() / 15 + 2);
    EXPECT_EQ(reader.numbers, upTo(2000));
}

TEST(EventPump, TakesWhatWasThereBefore) {
    EventPump pump;
    Reader reader;
    Stream stream;
    stream.emit(numbered(0));
    stream.finish();
    reader.follow(pump, stream);
    EXPECT_EQ(reader.batches, 0) << "never from within the call";
    ASSERT_TRUE(waitUntil([&] { return reader.ends == 1; }));
    EXPECT_EQ(reader.numbers, upTo(1));
}

TEST(EventPump, AnEmptyStreamEndsWithoutABatch) {
    EventPump pump;
    Reader reader;
    Stream stream;
    reader.follow(pump, stream);
    stream.finish();
    ASSERT_TRUE(waitUntil([&] { return reader.ends == 1; }));
    EXPECT_EQ(reader.batches, 0);
}

TEST(EventPump, StoppedItTakesNothingMore) {
    EventPump pump;
    Reader reader;
    Stream stream;
    reader.follow(pump, stream);
    stream.emit(numbered(0));
    pump.stop();
    stream.emit(numbered(1));
    stream.finish();
    QCoreApplication::processEvents();
    EXPECT_TRUE(reader.numbers.empty());
    EXPECT_EQ(reader.ends, 0);
}

TEST(EventPump, MayGoWhileTheWriterGoesOn) {
    Stream stream;
    Reader reader;
    std::atomic<bool> hasGone = false;
    std::jthread writer;
    {
        EventPump pump;
        reader.follow(pump, stream);
        writer = std::jthread([stream, &hasGone]() mutable {
            while (!hasGone) {
                stream.emit(numbered(0));
                std::this_thread::sleep_for(std::chrono::microseconds(10));
            }
            stream.finish();
        });
        ASSERT_TRUE(waitUntil([&] { return reader.batches > 0; }));
    }
    const std::size_t taken = reader.numbers.size();
    hasGone = true;
    writer.join();
    QCoreApplication::processEvents();
    EXPECT_EQ(reader.numbers.size(), taken);
}

TEST(EventPump, TheEndOfOneStreamMayBeginTheNext) {
    EventPump pump;
    Reader second;
    Stream first;
    Stream next;
    pump.follow(
        first, [](const auto&) {}, [&] { second.follow(pump, next); });
    first.finish();
    next.emit(numbered(0));
    next.finish();
    ASSERT_TRUE(waitUntil([&] { return second.ends == 1; }));
    EXPECT_EQ(second.numbers, upTo(1));
}

}  // namespace
}  // namespace ornivo::app
