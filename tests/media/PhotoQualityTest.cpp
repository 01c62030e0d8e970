#include "media/PhotoQuality.h"

#include <gtest/gtest.h>

namespace ornivo::testing {
namespace {

using Tags = std::vector<QualityTag>;

/// A photograph with nothing to remark on.
PhotoQuality faultless() {
    return {.sharpness = 0.02,
            .meanLuminance = 0.5,
            .clippedHighlights = 0,
            .clippedShadows = 0,
            .iso = 400};
}

Tags tagsWith(double PhotoQuality::*measure, double value) {
    PhotoQuality quality = faultless();
    quality.*measure = value;
    return quality.tags();
}

Tags tagsWithIso(std::optional<std::int64_t> iso) {
    PhotoQuality quality = faultless();
    quality.iso = iso;
    return quality.tags();
}

TEST(PhotoQuality, AFaultlessPhotographHasNoTags) {
    EXPECT_EQ(faultless().tags(), Tags{});
}

TEST(PhotoQuality, ANewReadingIsAllZeroWithoutAnIso) {
    const PhotoQuality quality;
    EXPECT_EQ(quality.sharpness, 0);
    EXPECT_EQ(quality.meanLuminance, 0);
    EXPECT_EQ(quality.clippedHighlights, 0);
    EXPECT_EQ(quality.clippedShadows, 0);
    EXPECT_EQ(quality.iso, std::nullopt);
}

TEST(PhotoQuality, EqualityComparesEveryMeasure) {
    EXPECT_EQ(faultless(), faultless());
    for (const auto measure : {&PhotoQuality::sharpness, &PhotoQuality::meanLuminance,
                               &PhotoQuality::clippedHighlights, &PhotoQuality::clippedShadows}) {
        PhotoQuality other = faultless();
        other.*measure += 0.001;
        EXPECT_NE(other, faultless());
    }
    PhotoQuality other = faultless();
    other.iso.reset();
    EXPECT_NE(other, faultless());
}

TEST(PhotoQuality, SharpnessBelowTheBoundsIsSoft) {
    EXPECT_EQ(tagsWith(&PhotoQuality::sharpness, 0.0), Tags{QualityTag::verySoft});
    EXPECT_EQ(tagsWith(&PhotoQuality::sharpness, 0.00299), Tags{QualityTag::verySoft});
    EXPECT_EQ(tagsWith(&PhotoQuality::sharpness, 0.00999), Tags{QualityTag::soft});
}

TEST(PhotoQuality, SharpnessOfExactlyAHundredthHasNoSoftnessTag) {
    EXPECT_EQ(tagsWith(&PhotoQuality::sharpness, 0.01), Tags{});
}

TEST(PhotoQuality, SharpnessOfExactlyThreeThousandthsIsSoft) {
    EXPECT_EQ(tagsWith(&PhotoQuality::sharpness, 0.003), Tags{QualityTag::soft});
}

TEST(PhotoQuality, AnIsoOfExactly3200IsHigh) {
    EXPECT_EQ(tagsWithIso(3200), Tags{QualityTag::highISO});
    EXPECT_EQ(tagsWithIso(3199), Tags{});
}

TEST(PhotoQuality, AnAbsentIsoGetsNothing) {
    EXPECT_EQ(tagsWithIso(std::nullopt), Tags{});
}

TEST(PhotoQuality, LuminanceExactlyAtABoundGetsNoExposureTag) {
    EXPECT_EQ(tagsWith(&PhotoQuality::meanLuminance, 0.18), Tags{});
    EXPECT_EQ(tagsWith(&PhotoQuality::meanLuminance, 0.82), Tags{});
}

TEST(PhotoQuality, LuminanceBeyondABoundGetsAnExposureTag) {
    EXPECT_EQ(tagsWith(&PhotoQuality::meanLuminance, 0.179), Tags{QualityTag::underexposed});
    EXPECT_EQ(tagsWith(&PhotoQuality::meanLuminance, 0.821), Tags{QualityTag::overexposed});
}

TEST(PhotoQuality, ClippedHighlightsOfExactlyATwentiethGetNoTag) {
    EXPECT_EQ(tagsWith(&PhotoQuality::clippedHighlights, 0.05), Tags{});
    EXPECT_EQ(tagsWith(&PhotoQuality::clippedHighlights, 0.051), Tags{QualityTag::clipped});
}

TEST(PhotoQuality, ClippedShadowsGetNoTag) {
    EXPECT_EQ(tagsWith(&PhotoQuality::clippedShadows, 1.0), Tags{});
}

TEST(PhotoQuality, TagsComeInTheirOrder) {
    const PhotoQuality poor{.sharpness = 0.005,
                            .meanLuminance = 0.9,
                            .clippedHighlights = 0.5,
                            .clippedShadows = 0.5,
                            .iso = 12800};
    EXPECT_EQ(poor.tags(), (Tags{QualityTag::soft, QualityTag::highISO, QualityTag::overexposed,
                                 QualityTag::clipped}));
    const PhotoQuality dark{.sharpness = 0.001,
                            .meanLuminance = 0.1,
                            .clippedHighlights = 0.1,
                            .clippedShadows = 0,
                            .iso = 6400};
    EXPECT_EQ(dark.tags(), (Tags{QualityTag::verySoft, QualityTag::highISO,
                                 QualityTag::underexposed, QualityTag::clipped}));
}

}  // namespace
}  // namespace ornivo::testing
