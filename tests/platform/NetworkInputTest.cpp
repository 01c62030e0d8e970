#include "platform/NetworkInput.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "support/Pictures.h"

namespace ornivo {
namespace {

using testing::Colour;
using testing::painted;

std::vector<float> planesOf(const Bitmap& picture, int side) {
    const auto size = static_cast<std::size_t>(side);
    std::vector<float> planes(3 * size * size, -1);
    fillPlanes(picture, side, planes);
    return planes;
}

std::uint8_t level(double value) {
    return static_cast<std::uint8_t>(std::lround(value));
}

/// A picture whose colours rise evenly: red from left to right, green from top to bottom.
Bitmap ramps(int width, int height) {
    return painted(width, height, [=](int x, int y) {
        return Colour{level(255.0 * x / (width - 1)), level(255.0 * y / (height - 1)), 77};
    });
}

TEST(NetworkInput, APictureOfTheRightSizeComesThroughUnchanged) {
    const Bitmap picture(2, 2, {1, 2, 3, 11, 12, 13, 21, 22, 23, 255, 254, 0});
    EXPECT_EQ(planesOf(picture, 2),
              (std::vector<float>{1, 11, 21, 255, 2, 12, 22, 254, 3, 13, 23, 0}));
}

TEST(NetworkInput, OnlyTheMiddleOfTheLongerSideIsSeen) {
    const auto wide = painted(9, 4, [](int x, int) {
        return x < 2 || x > 5 ? Colour{255, 0, 0} : Colour{0, 9, 0};
    });
    const auto tall = painted(4, 9, [](int, int y) {
        return y < 2 || y > 5 ? Colour{255, 0, 0} : Colour{0, 9, 0};
    });
    std::vector<float> expected(48, 0);
    std::fill(expected.begin() + 16, expected.begin() + 32, 9.0F);
    EXPECT_EQ(planesOf(wide, 4), expected);
    EXPECT_EQ(planesOf(tall, 4), expected);
}

TEST(NetworkInput, AnEvenPictureStaysEvenAtAnyScale) {
    for (const auto& [width, height] : {std::pair{1, 1}, {2, 5}, {7, 7}, {40, 30}, {641, 480}}) {
        const auto planes = planesOf(testing::filled(width, height, {3, 200, 255}), 16);
        for (std::size_t i = 0; i < planes.size(); ++i) {
            ASSERT_EQ(planes[i], (std::vector<float>{3, 200, 255})[i / 256])
                << width << 'x' << height;
        }
    }
}

TEST(NetworkInput, SmoothColoursKeepTheirPlacesAtAnyScale) {
    constexpr std::size_t side = 64;
    for (const int from : {40, 64, 65, 90, 128, 300}) {
        const auto planes = planesOf(ramps(from, from), 64);
        for (std::size_t y = 4; y < side - 4; ++y) {
            for (std::size_t x = 4; x < side - 4; ++x) {
                const auto expected = [=](std::size_t i) {
                    return 255.0 * ((static_cast<double>(i) + 0.5) * from / side - 0.5) /
                           (from - 1);
                };
                ASSERT_NEAR(planes[y * side + x], expected(x), 1) << from;
                ASSERT_NEAR(planes[(side + y) * side + x], expected(y), 1) << from;
            }
        }
    }
}

TEST(NetworkInput, StripesTooFineForTheNewSizeBecomeTheirMean) {
    const auto stripes = painted(128, 128, [](int x, int) {
        return x % 2 == 0 ? Colour{200, 200, 200} : Colour{100, 100, 100};
    });
    const auto planes = planesOf(stripes, 32);
    for (std::size_t row = 0; row < 32; ++row) {
        for (std::size_t x = 4; x < 28; ++x) ASSERT_NEAR(planes[row * 32 + x], 150, 1);
    }
}

TEST(NetworkInput, FollowsTheLanczosFilterToTheNearestWholeNumber) {
    constexpr int from = 10;
    constexpr int side = 7;
    const std::vector<std::uint8_t> line{0, 10, 250, 30, 200, 90, 255, 0, 120, 60};
    const auto picture = painted(from, from, [&](int x, int) {
        return Colour{line[static_cast<std::size_t>(x)], 0, 0};
    });
    const auto planes = planesOf(picture, side);
    for (int x = 0; x < side; ++x) {
        const double scale = static_cast<double>(from) / side;
        double sum = 0;
        double weights = 0;
        for (int i = 0; i < from; ++i) {
            const double distance = std::numbers::pi * ((i + 0.5) / scale - (x + 0.5));
            if (std::abs(distance) >= 3 * std::numbers::pi) continue;
            const double weight =
                3 * std::sin(distance) * std::sin(distance / 3) / (distance * distance);
            sum += weight * line[static_cast<std::size_t>(i)];
            weights += weight;
        }
        const double expected = std::clamp(sum / weights, 0.0, 255.0);
        EXPECT_NEAR(planes[static_cast<std::size_t>(x)], expected, 0.501) << x;
    }
}

TEST(NetworkInput, OvershootsAtHardEdgesStayWithinTheRange) {
    const auto edge = painted(50, 50, [](int x, int) {
        return x < 25 ? Colour{0, 0, 0} : Colour{255, 255, 255};
    });
    for (const float value : planesOf(edge, 64)) {
        ASSERT_GE(value, 0);
        ASSERT_LE(value, 255);
        ASSERT_EQ(value, std::floor(value));
    }
}

}  // namespace
}  // namespace ornivo
