#include "media/PhotoMetadata.h"

#include <gtest/gtest.h>

#include <array>

namespace ornivo::testing {
namespace {

TEST(PhotoMetadata, ANewRecordKnowsNothingAndIsUpright) {
    const PhotoMetadata unknown;
    EXPECT_EQ(unknown.orientation, 1U);
    EXPECT_EQ(unknown.location, std::nullopt);
    EXPECT_EQ(unknown.captureDate, std::nullopt);
    EXPECT_EQ(unknown.captureSecond, std::nullopt);
    EXPECT_EQ(unknown.quality, std::nullopt);
}

TEST(PhotoMetadata, EqualityComparesEveryField) {
    std::array<PhotoMetadata, 5> others;
    others[0].orientation = 6;
    others[1].location = PhotoLocation::make(47, 8);
    others[2].captureDate = "2024-05-17";
    others[3].captureSecond = 0;
    others[4].quality = PhotoQuality{};
    for (const auto& other : others) {
        EXPECT_NE(other, PhotoMetadata{});
        EXPECT_EQ(other, PhotoMetadata(other));
    }
}

}  // namespace
}  // namespace ornivo::testing
