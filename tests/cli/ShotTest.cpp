#include "cli/Shot.h"

#include <gtest/gtest.h>

#include "identification/BirdClassifierLabels.h"

namespace ornivo::cli {

namespace {

const IdentifiedSpecies hoopoe{{"Upupa_epops", 0.934}, {{"Upupa_epops", 0.934}}};

}  // namespace

TEST(Shot, AShotIsOneLineOfWords) {
    const std::string name = BirdClassifierLabels::displayName("Upupa_epops");
    EXPECT_EQ(shotLine({"a.jpg", hoopoe, true, std::nullopt}),
              "a.jpg: " + name + " 93% → " + name + "/");
    EXPECT_EQ(shotLine({"a.jpg", hoopoe, false, std::nullopt}),
              "a.jpg: " + name + " 93% → _Uncertain/");
    EXPECT_EQ(shotLine({"a.jpg", hoopoe, true, "no right"}), "✗ a.jpg: no right");
}

TEST(Shot, ANameThatIsNoFolderNameIsToldAsTheFolderThatItGets) {
    const IdentifiedSpecies slashed{{"no/label", 0.5}, {{"no/label", 0.5}}};
    EXPECT_EQ(shotLine({"a.jpg", slashed, true, std::nullopt}), "a.jpg: No/Label 50% → No_Label/");
}

TEST(Shot, EachKindHasItsTone) {
    EXPECT_EQ(toneOf({"a.jpg", hoopoe, true, std::nullopt}), Tone::accent);
    EXPECT_EQ(toneOf({"a.jpg", hoopoe, false, std::nullopt}), Tone::subdued);
    EXPECT_EQ(toneOf({"a.jpg", hoopoe, true, "no right"}), Tone::error);
}

}  // namespace ornivo::cli
