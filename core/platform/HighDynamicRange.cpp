#include "platform/HighDynamicRange.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace ornivo {
namespace {

constexpr std::size_t levels = 65536;
constexpr double paperWhite = 203;

using Colour = std::array<float, Bitmap::channels>;
using Matrix = std::array<Colour, Bitmap::channels>;

/// From the primaries of BT.2020 to those of sRGB, both with the white of D65.
constexpr Matrix toSrgb{
    {{1.6605F, -0.5876F, -0.0728F}, {-0.1246F, 1.1329F, -0.0083F}, {-0.0182F, -0.1006F, 1.1187F}}};

/// What each primary of BT.2020 adds to brightness.
constexpr Colour brightness{0.2627F, 0.6780F, 0.0593F};

float sum(const Colour& weights, const Colour& colour) {
    return weights[0] * colour[0] + weights[1] * colour[1] + weights[2] * colour[2];
}

/// Light on the screen, paper white being 1.
double lightOfPq(double value) {
    constexpr double m1 = 2610.0 / 16384;
    constexpr double m2 = 2523.0 / 4096 * 128;
    constexpr double c1 = 3424.0 / 4096;
    constexpr double c2 = 2413.0 / 4096 * 32;
    constexpr double c3 = 2392.0 / 4096 * 32;
    const double root = std::pow(value, 1 / m2);
    return 10000 / paperWhite * std::pow(std::max(root - c1, 0.0) / (c2 - c3 * root), 1 / m1);
}

/// Light of the scene, from 0 to 1.
double lightOfHlg(double value) {
    constexpr double a = 0.17883277;
    constexpr double b = 1 - 4 * a;
    const double c = 0.5 - a * std::log(4 * a);
    return value <= 0.5 ? value * value / 3 : (std::exp((value - c) / a) + b) / 12;
}

std::vector<float> lightTable(double (*lightOf)(double)) {
    std::vector<float> table(levels);
    for (std::size_t i = 0; i < levels; ++i) {
        table[i] = static_cast<float>(lightOf(static_cast<double>(i) / (levels - 1)));
    }
    return table;
}

const std::vector<float>& lightTable(LightCurve curve) {
    static const std::vector<float> pq = lightTable(lightOfPq);
    static const std::vector<float> hlg = lightTable(lightOfHlg);
    return curve == LightCurve::pq ? pq : hlg;
}

/// What a screen makes of the light of a scene: brightness to the power of 1.2.
Colour onScreen(const Colour& scene) {
    constexpr float exponentBeyondLinear = 0.2F;
    constexpr auto peak = static_cast<float>(1000 / paperWhite);
    const float factor = peak * std::pow(sum(brightness, scene), exponentBeyondLinear);
    return {factor * scene[0], factor * scene[1], factor * scene[2]};
}

/// Presses the strongest channel below 1 and takes the others along.
Colour pressed(const Colour& colour) {
    constexpr float knee = 0.6F;
    const float strongest = std::max({colour[0], colour[1], colour[2]});
    if (strongest <= knee) return colour;
    const float excess = strongest - knee;
    const float factor = (knee + (1 - knee) * excess / (excess + 1 - knee)) / strongest;
    return {factor * colour[0], factor * colour[1], factor * colour[2]};
}

Colour inSrgb(const Colour& colour) {
    Colour converted{};
    for (std::size_t i = 0; i < converted.size(); ++i) {
        converted[i] = std::max(sum(toSrgb[i], colour), 0.0F);
    }
    return converted;
}

std::uint8_t written(float light) {
    static const std::vector<std::uint8_t> table = [] {
        std::vector<std::uint8_t> bytes(levels);
        for (std::size_t i = 0; i < levels; ++i) {
            const double value = static_cast<double>(i) / (levels - 1);
            const double code =
                value <= 0.0031308 ? 12.92 * value : 1.055 * std::pow(value, 1 / 2.4) - 0.055;
            bytes[i] = static_cast<std::uint8_t>(std::lround(255 * code));
        }
        return bytes;
    }();
    return table[static_cast<std::size_t>(std::lround(light * (levels - 1)))];
}

}  // namespace

Bitmap toneMapped(PixelSize size, std::span<const std::uint16_t> values, LightCurve curve) {
    const auto& light = lightTable(curve);
    std::vector<std::uint8_t> pixels;
    pixels.reserve(values.size());
    for (std::size_t i = 0; i + 2 < values.size(); i += Bitmap::channels) {
        const Colour read{light[values[i]], light[values[i + 1]], light[values[i + 2]]};
        const Colour shown = curve == LightCurve::hlg ? onScreen(read) : read;
        for (const float channel : pressed(inSrgb(shown))) pixels.push_back(written(channel));
    }
    return {size.width, size.height, std::move(pixels)};
}

}  // namespace ornivo
