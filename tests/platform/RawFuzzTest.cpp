// Feeds the reader of RAW files with damaged ones of every kind. The same entry serves a fuzzer.

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "fuzz/RawContainerEntry.h"
#include "support/Pictures.h"
#include "support/RawFiles.h"

namespace ornivo::testing {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The file with a few numbers changed, parts taken out or doubled, or its end cut off.
Bytes damaged(Bytes file, std::mt19937& random) {
    const auto below = [&](std::size_t bound) { return random() % bound; };
    const std::vector<Bytes> numbers{
        {0, 0, 0, 0},         {0xFF, 0xFF, 0xFF, 0xFF}, {0, 0, 0, 1}, {0x7F, 0xFF, 0xFF, 0xFF},
        {0x80, 0, 0, 0},      {0xF0, 0xFF, 0xFF, 0xFF}, {0xFF, 0xFF}, {0, 4},
        {1, 0, 0, 0, 0, 0, 0}};
    for (std::size_t changes = 1 + below(6); changes > 0 && file.size() > 16; --changes) {
        const std::size_t at = below(file.size());
        const auto place = file.begin() + static_cast<std::ptrdiff_t>(at);
        const auto rest = static_cast<std::ptrdiff_t>(file.size() - at);
        switch (below(6)) {
            case 0:
                *place = static_cast<std::uint8_t>(random());
                break;
            case 1: {
                const Bytes& number = numbers[below(numbers.size())];
                for (std::size_t i = 0; i < number.size() && at + i < file.size(); ++i) {
                    file[at + i] = number[i];
                }
                break;
            }
            case 2:
                file.erase(place, place + std::min<std::ptrdiff_t>(
                                              rest, 1 + static_cast<std::ptrdiff_t>(below(40))));
                break;
            case 3: {
                const Bytes copy(place, place + std::min<std::ptrdiff_t>(rest, 60));
                file.insert(file.begin() + static_cast<std::ptrdiff_t>(below(file.size())),
                            copy.begin(), copy.end());
                break;
            }
            case 4:
                *place ^= static_cast<std::uint8_t>(1U << below(8));
                break;
            default:
                if (below(4) == 0) file.resize(at);
        }
    }
    return file;
}

class RawFuzz : public ::testing::TestWithParam<RawKind> {};

INSTANTIATE_TEST_SUITE_P(Makers, RawFuzz, ::testing::ValuesIn(allRawKinds),
                         [](const auto& kind) { return std::string(extensionOf(kind.param)); });

TEST_P(RawFuzz, ADamagedFileIsReadOrIsNone) {
    const std::string jpeg = jpegOf(filled(16, 12), {.exif = {.orientation = 6}});
    const std::string file = rawFile(GetParam(), {{jpeg}, {jpeg}},
                                     {.adobe = AdobeMark::interoperability, .sensorBytes = 16});
    const Bytes whole(file.begin(), file.end());
    std::mt19937 random(20261122);
    for (int round = 0; round < 5000; ++round) feedRawContainer(damaged(whole, random));
    feedRawContainer({});
    feedRawContainer(Bytes(100'000, 0xFF));
}

}  // namespace
}  // namespace ornivo::testing
