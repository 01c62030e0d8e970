#include "cli/Shot.h"

#include <gtest/gtest.h>

#include "identification/BirdClassifierLabels.h"

namespace ornivo::cli {

namespace {

const IdentifiedSpecies hoopoe{{"Upupa_epops", 0.934}, {{"Upupa_epops", 0.934}}};

}  // namespace

TEST(Shot, AShotIsOneLineOfWords) {
    const std::string name = BirdClassifierLabels::displayName("Upupa_epops");
    EXPECT_EQ(shotLine({"a.jpg", hoopoe, true, name}), "a.jpg: " + name + " 93% → " + name + "/");
    EXPECT_EQ(shotLine({"a.jpg", hoopoe, false, "_Uncertain"}),
              "a.jpg: " + name + " 93% → _Uncertain/");
    EXPECT_EQ(shotLine({"a.jpg", hoopoe, true, std::nullopt, "no right"}), "✗ a.jpg: no right");
}

TEST(Shot, AShotThatStaysWhereItIsHasNoFolder) {
    const std::string name = BirdClassifierLabels::displayName("Upupa_epops");
    EXPECT_EQ(shotLine({"a.jpg", hoopoe, true}), "a.jpg: " + name + " 93%");
    EXPECT_EQ(shotLine({"a.jpg", hoopoe, false}), "a.jpg: " + name + " 93%, no confirmed call");
}

TEST(Shot, EachKindHasItsTone) {
    EXPECT_EQ(toneOf({"a.jpg", hoopoe, true, "Hoopoe"}), Tone::accent);
    EXPECT_EQ(toneOf({"a.jpg", hoopoe, false, "_Uncertain"}), Tone::subdued);
    EXPECT_EQ(toneOf({"a.jpg", hoopoe, true}), Tone::subdued);
    EXPECT_EQ(toneOf({"a.jpg", hoopoe, true, std::nullopt, "no right"}), Tone::error);
}

}  // namespace ornivo::cli
