#include "identification/TargetSpecies.h"

#include <gtest/gtest.h>

namespace ornivo {
namespace {

struct Row {
    const char* text;
    BirdSpecies species;
};

class TypedSpecies : public ::testing::TestWithParam<Row> {};

TEST_P(TypedSpecies, IsSplitIntoItsNames) {
    EXPECT_EQ(TargetSpecies::parse(GetParam().text), GetParam().species);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TypedSpecies,
    ::testing::Values(Row{"", {"", ""}}, Row{" \t\n", {"", ""}}, Row{" Osprey ", {"Osprey", ""}},
                      Row{"Osprey (Pandion haliaetus)", {"Osprey", "Pandion haliaetus"}},
                      Row{"Tern (Common) ( Sterna hirundo )", {"Tern (Common)", "Sterna hirundo"}},
                      Row{"Osprey (Pandion haliaetus) - adult", {"Osprey", "Pandion haliaetus"}},
                      Row{"(Pandion haliaetus)", {"", "Pandion haliaetus"}}, Row{"()", {"", ""}},
                      Row{"Osprey )(", {"Osprey )(", ""}},
                      Row{"Osprey (Pandion", {"Osprey (Pandion", ""}},
                      Row{"Osprey|Pandion haliaetus", {"Osprey", "Pandion haliaetus"}},
                      Row{"Osprey - Pandion haliaetus", {"Osprey", "Pandion haliaetus"}},
                      Row{"Osprey -- Pandion haliaetus", {"Osprey", "Pandion haliaetus"}},
                      Row{"Osprey;Pandion haliaetus", {"Osprey", "Pandion haliaetus"}},
                      Row{"| Osprey | | Pandion haliaetus | x", {"Osprey", "Pandion haliaetus"}},
                      Row{"a - b|c", {"a - b", "c"}}, Row{"Osprey |", {"Osprey |", ""}},
                      Row{"Red-tailed Hawk", {"Red-tailed Hawk", ""}}));

TEST(TargetSpecies, EitherNameMakesABirdKnown) {
    EXPECT_TRUE(TargetSpecies::isKnown({"Long-eared Owl", "Asio otus"}));
    EXPECT_TRUE(TargetSpecies::isKnown({"Dodo", "Asio otus"}));
    EXPECT_TRUE(TargetSpecies::isKnown({"Long-eared Owl", ""}));
    EXPECT_FALSE(TargetSpecies::isKnown({"Dodo", "Raphus"}));
    EXPECT_FALSE(TargetSpecies::isKnown({"", ""}));
}

TEST(TargetSpecies, AKnownBirdGetsItsNamesAsTheTableSpellsThem) {
    const BirdSpecies owl{"Long-eared Owl", "Asio otus"};
    EXPECT_EQ(TargetSpecies::resolved({"long eared owl", ""}), owl);
    EXPECT_EQ(TargetSpecies::resolved({"Dodo", "asio otus"}), owl);
    EXPECT_EQ(TargetSpecies::resolved({"Dodo", "Raphus"}), (BirdSpecies{"Dodo", "Raphus"}));
}

TEST(TargetSpecies, WhatIsNotRecognisedIsNamedInOrder) {
    EXPECT_EQ(TargetSpecies::unrecognisedMessage({}, 1250), "");
    EXPECT_EQ(TargetSpecies::unrecognisedMessage({{"Dodo", "Raphus cucullatus"}}, 1250),
              "Dodo is not one of the 1250 species this build can recognise — a search for it will "
              "find nothing.");
    EXPECT_EQ(TargetSpecies::unrecognisedMessage(
                  {{"Dodo", ""}, {"", "Pinguinus impennis"}, {"Moa", ""}}, 11000),
              "Dodo, Pinguinus impennis, Moa are not among the 11000 species this build can "
              "recognise — a search for them will find nothing.");
    EXPECT_EQ(TargetSpecies::unrecognisedMessage({{"50%1 bird", ""}}, 7),
              "50%1 bird is not one of the 7 species this build can recognise — a search for it "
              "will find nothing.");
}

}  // namespace
}  // namespace ornivo
