#include "media/PhotoQualityMeter.h"

#include <gtest/gtest.h>

#include <functional>
#include <nlohmann/json.hpp>

#include "support/Pictures.h"

namespace ornivo::testing {
namespace {

using nlohmann::json;
using Tags = std::vector<QualityTag>;

constexpr Colour black{0, 0, 0};
constexpr Colour white{255, 255, 255};

PhotoQuality reading(const Bitmap& image) {
    return PhotoQualityMeter::measure(image, std::nullopt);
}

std::optional<std::int64_t> isoFrom(const std::optional<json>& properties) {
    return PhotoQualityMeter::measure(filled(10, 10), properties).iso;
}

json withIso(const json& value) {
    return {{property::exifGroup, {{property::exifIsoSpeedRatings, value}}}};
}

/// Black, but for a chequered square.
Bitmap sharpWithin(int side, int left, int top, int edge) {
    return painted(side, side, [=](int x, int y) {
        const bool isInside = x >= left && x < left + edge && y >= top && y < top + edge;
        return isInside && (x + y) % 2 == 0 ? white : black;
    });
}

/// The share of sampled pixels in a picture that is white in one place alone, in which a tile
/// either takes it in or doesn't.
double shareOfWhite(int side, int x, int y) {
    const auto single = painted(
        side, side, [=](int column, int row) { return column == x && row == y ? white : black; });
    return reading(single).clippedHighlights;
}

TEST(PhotoQualityMeter, ASideBelowEightPixelsReadsZero) {
    const Bitmap narrow = filled(7, 100, white);
    const auto quality = PhotoQualityMeter::measure(narrow, withIso(200));
    EXPECT_EQ(quality, (PhotoQuality{.iso = 200}));
    EXPECT_EQ(reading(filled(100, 7, white)), PhotoQuality{});
}

TEST(PhotoQualityMeter, EightByEightIsMeasuredWithTilesThatOverlap) {
    // The middle of the picture lies in nine to sixteen tiles of four by four, its corner in four.
    EXPECT_EQ(reading(filled(8, 8, white)).clippedHighlights, 1);
    EXPECT_DOUBLE_EQ(shareOfWhite(8, 0, 0), 4.0 / (36 * 16));
    EXPECT_DOUBLE_EQ(shareOfWhite(8, 3, 3), 16.0 / (36 * 16));
}

TEST(PhotoQualityMeter, TheTileGrowsWithThePictureUpToNinetySix) {
    struct Case {
        int side;
        int edge;
    };
    for (const auto& [side, edge] : {Case{23, 4}, Case{24, 4}, Case{30, 5}, Case{300, 50},
                                     Case{575, 95}, Case{576, 96}, Case{600, 96}, Case{2000, 96}}) {
        // A pixel in the middle of the first tile is one of all that the 36 tiles sample.
        const int middle = side / 12;
        EXPECT_DOUBLE_EQ(shareOfWhite(side, middle, middle), 1.0 / (36.0 * edge * edge)) << side;
    }
}

TEST(PhotoQualityMeter, TheTilesStandInTheMiddleOfTheirCells) {
    // With sides of 1200 the first tile takes in the pixels from 52 to 147.
    EXPECT_EQ(shareOfWhite(1200, 51, 100), 0);
    EXPECT_GT(shareOfWhite(1200, 52, 100), 0);
    EXPECT_GT(shareOfWhite(1200, 147, 100), 0);
    EXPECT_EQ(shareOfWhite(1200, 148, 100), 0);
    EXPECT_GT(shareOfWhite(1200, 1147, 1147), 0);
    EXPECT_EQ(shareOfWhite(1200, 1148, 1147), 0);
}

TEST(PhotoQualityMeter, TheVarianceIsOfTheLaplacianInsideTheTile) {
    // Columns of three: the Laplacian is 0 in the middle of each, and 1 or -1 at its edges.
    const Bitmap columns =
        painted(240, 240, [](int x, int) { return x / 3 % 2 == 0 ? black : white; });
    // Of the 38 inner columns of a tile of 40, from any beginning, 25 or 26 are edges.
    const double sharpness = reading(columns).sharpness;
    EXPECT_GE(sharpness, 25.0 / 38 - 1e-3);
    EXPECT_LE(sharpness, 26.0 / 38);
}

TEST(PhotoQualityMeter, AFlatMidGreyImageIsVerySoftAndNothingMore) {
    const auto quality = reading(filled(600, 400));
    EXPECT_EQ(quality.sharpness, 0);
    EXPECT_NEAR(quality.meanLuminance, 0.5, 0.01);
    EXPECT_EQ(quality.clippedHighlights, 0);
    EXPECT_EQ(quality.clippedShadows, 0);
    EXPECT_EQ(quality.tags(), Tags{QualityTag::verySoft});
}

TEST(PhotoQualityMeter, AnAllWhiteImageIsOverexposedAndClipped) {
    const auto quality = reading(filled(600, 400, white));
    EXPECT_EQ(quality.clippedHighlights, 1);
    EXPECT_EQ(quality.meanLuminance, 1);
    EXPECT_EQ(quality.tags(),
              (Tags{QualityTag::verySoft, QualityTag::overexposed, QualityTag::clipped}));
}

TEST(PhotoQualityMeter, AnAllBlackImageIsUnderexposed) {
    const auto quality = reading(filled(600, 400, black));
    EXPECT_EQ(quality.clippedShadows, 1);
    EXPECT_EQ(quality.meanLuminance, 0);
    EXPECT_EQ(quality.tags(), (Tags{QualityTag::verySoft, QualityTag::underexposed}));
}

TEST(PhotoQualityMeter, AnImageSharpInOneTileOnlyReadsSoft) {
    // The first tile of a picture of 1200 reaches from 52 to 147, the second from 252.
    EXPECT_EQ(reading(sharpWithin(1200, 52, 52, 96)).sharpness, 0);
    EXPECT_GT(reading(sharpWithin(1200, 52, 52, 296)).sharpness, 1);
}

TEST(PhotoQualityMeter, ClippingBeginsOneStepFromTheEnds) {
    EXPECT_EQ(reading(filled(60, 60, {254, 254, 254})).clippedHighlights, 1);
    EXPECT_EQ(reading(filled(60, 60, {253, 253, 253})).clippedHighlights, 0);
    EXPECT_EQ(reading(filled(60, 60, {1, 1, 1})).clippedShadows, 1);
    EXPECT_EQ(reading(filled(60, 60, {2, 2, 2})).clippedShadows, 0);
}

TEST(PhotoQualityMeter, ColoursWeighAsTheEyeWeighsThem) {
    EXPECT_NEAR(reading(filled(60, 60, {255, 0, 0})).meanLuminance, 0.299, 0.003);
    EXPECT_NEAR(reading(filled(60, 60, {0, 255, 0})).meanLuminance, 0.587, 0.003);
    EXPECT_NEAR(reading(filled(60, 60, {0, 0, 255})).meanLuminance, 0.114, 0.003);
}

TEST(PhotoQualityMeter, AListOfIsosReadsItsFirst) {
    EXPECT_EQ(isoFrom(withIso({800, 1600})), 800);
}

TEST(PhotoQualityMeter, ASingleIsoReadsItself) {
    EXPECT_EQ(isoFrom(withIso(3200)), 3200);
    EXPECT_EQ(isoFrom(withIso(125.9)), 125);
}

TEST(PhotoQualityMeter, AnIsoThatIsNoNumberIsAbsent) {
    EXPECT_EQ(isoFrom(withIso("800")), std::nullopt);
    EXPECT_EQ(isoFrom(withIso(json::array())), std::nullopt);
    EXPECT_EQ(isoFrom(withIso({800, "1600"})), std::nullopt);
    EXPECT_EQ(isoFrom(withIso(1e300)), std::nullopt);
}

TEST(PhotoQualityMeter, APhotographWithoutAnExifGroupHasNoIsoAndTheSameMeasures) {
    const Bitmap image = quarters(300, 200);
    const auto without = PhotoQualityMeter::measure(image, json::object());
    auto with = PhotoQualityMeter::measure(image, withIso(100));
    EXPECT_EQ(without.iso, std::nullopt);
    EXPECT_EQ(isoFrom(json{{property::exifGroup, "text"}}), std::nullopt);
    with.iso.reset();
    EXPECT_EQ(with, without);
}

}  // namespace
}  // namespace ornivo::testing
