#include "platform/ByteSource.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <string>

#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

std::string textOf(const ByteSource& source, ByteRange range) {
    const auto bytes = bytesOf(source, range);
    return bytes ? std::string(bytes->begin(), bytes->end()) : "absent";
}

TEST(ByteSource, APartOfAFileIsRead) {
    const TempFolder folder;
    const FileBytes file(writeFile(folder / "a", "0123456789"));
    EXPECT_EQ(file.size(), 10U);
    EXPECT_EQ(textOf(file, {3, 4}), "3456");
    EXPECT_EQ(textOf(file, {0, 10}), "0123456789");
    EXPECT_EQ(textOf(file, {10, 0}), "");
}

TEST(ByteSource, WhatIsNotAllThereIsAbsent) {
    const TempFolder folder;
    const FileBytes file(writeFile(folder / "a", "0123456789"));
    const std::array<std::uint8_t, 3> memory{1, 2, 3};
    const MemoryBytes bytes(memory);
    constexpr std::uint64_t most = ~std::uint64_t{0};
    for (const ByteSource* source :
         {static_cast<const ByteSource*>(&file), static_cast<const ByteSource*>(&bytes)}) {
        const std::uint64_t end = source->size();
        for (const ByteRange range :
             {ByteRange{end, 1}, {end - 1, 2}, {0, end + 1}, {most, 1}, {1, most}, {most, most}}) {
            EXPECT_FALSE(holds(*source, range));
            EXPECT_EQ(textOf(*source, range), "absent");
        }
        std::array<std::uint8_t, 2> into{};
        EXPECT_FALSE(source->read(end - 1, into));
        EXPECT_FALSE(source->read(most, into));
    }
}

TEST(ByteSource, WhatIsNoRegularFileIsEmpty) {
    const TempFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(FileBytes(folder / "pipe").size(), 0U);
    EXPECT_EQ(FileBytes(folder.path()).size(), 0U);
    EXPECT_EQ(FileBytes(folder / "missing").size(), 0U);
}

}  // namespace
}  // namespace ornivo::testing
