#include "engine/EventStream.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <thread>
#include <vector>

namespace ornivo {
namespace {

TEST(EventStream, AnOpenStreamWithoutValuesHasNothingToReadAndIsNotAtItsEnd) {
    EventStream<int> stream;
    EXPECT_EQ(stream.tryNext(), std::nullopt);
    EXPECT_FALSE(stream.isAtEnd());
}

TEST(EventStream, ValuesComeInTheirOrderAndThenTheEnd) {
    EventStream<int> stream;
    stream.emit(1);
    stream.emit(2);
    stream.finish();
    EXPECT_FALSE(stream.isAtEnd());
    EXPECT_EQ(stream.next(), 1);
    EXPECT_EQ(stream.tryNext(), 2);
    EXPECT_TRUE(stream.isAtEnd());
    EXPECT_EQ(stream.next(), std::nullopt);
    EXPECT_EQ(stream.tryNext(), std::nullopt);
}

TEST(EventStream, ACopyIsAnotherHandleOnTheSameStream) {
    EventStream<int> writer;
    EventStream<int> reader = writer;
    writer.emit(7);
    EXPECT_EQ(reader.next(), 7);
    EXPECT_EQ(writer.tryNext(), std::nullopt);
}

TEST(EventStream, AReaderWaitsForItsWriterAndLosesNothing) {
    constexpr int count = 20000;
    EventStream<int> stream;
    const std::jthread writer([stream]() mutable {
        for (int i = 0; i < count; ++i) stream.emit(i);
        stream.finish();
    });
    int expected = 0;
    while (const auto value = stream.next()) ASSERT_EQ(*value, expected++);
    EXPECT_EQ(expected, count);
}

TEST(EventStream, TheWriterGoesOnWhenTheReaderHasGone) {
    auto writer = std::make_unique<EventStream<int>>();
    { const EventStream<int> reader = *writer; }
    writer->emit(1);
    writer->finish();
    EXPECT_EQ(writer->next(), 1);
}

TEST(EventStream, TheReaderReadsOnWhenTheWriterHasGone) {
    EventStream<int> reader;
    {
        EventStream<int> writer = reader;
        writer.emit(1);
        writer.finish();
    }
    EXPECT_EQ(reader.next(), 1);
    EXPECT_TRUE(reader.isAtEnd());
}

TEST(EventStream, TheHookIsCalledAfterEachChange) {
    EventStream<int> stream;
    int calls = 0;
    stream.onReadable([&] { ++calls; });
    EXPECT_EQ(calls, 0);
    stream.emit(1);
    EXPECT_EQ(calls, 1);
    stream.finish();
    EXPECT_EQ(calls, 2);
}

TEST(EventStream, TheHookIsCalledAtOnceWhenThereIsSomethingToRead) {
    EventStream<int> withValue;
    withValue.emit(1);
    int calls = 0;
    withValue.onReadable([&] { ++calls; });
    EXPECT_EQ(calls, 1);

    EventStream<int> ended;
    ended.finish();
    ended.onReadable([&] { ++calls; });
    EXPECT_EQ(calls, 2);
}

TEST(EventStream, TheHookMayReadAndMayBeTakenAway) {
    EventStream<int> stream;
    std::vector<int> read;
    stream.onReadable([&, reader = stream]() mutable {
        while (const auto value = reader.tryNext()) read.push_back(*value);
    });
    stream.emit(1);
    stream.emit(2);
    EXPECT_EQ(read, (std::vector{1, 2}));
    stream.onReadable(nullptr);
    stream.emit(3);
    EXPECT_EQ(read, (std::vector{1, 2}));
    EXPECT_EQ(stream.tryNext(), 3);
}

}  // namespace
}  // namespace ornivo
