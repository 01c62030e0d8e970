#include "identification/SpeciesLookup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ornivo::BirdClassifierLabels {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> found(const SpeciesLookup& lookup, std::string_view query,
                               int limit = 10) {
    std::vector<std::string> names;
    for (const SpeciesMatch& match : lookup.search(query, limit)) names.push_back(match.commonName);
    return names;
}

const SpeciesLookup birds({
    {"Ardea_alba", "Great Egret"},
    {"Zonotrichia_leucophrys", "White-crowned Sparrow"},
    {"Zonotrichia_albicollis", "White-throated Sparrow"},
    {"Corvus_albus", "Pied Crow"},
    {"Sula_variegata", "Peruvian Booby"},
    {"Pipile_cumanensis", "Piñón Guan"},
    {"Bubo_scandiacus", "Snowy Owl"},
});

// Displaying

TEST(SpeciesLookup, DisplaysTheCommonNameOfAKnownLabel) {
    EXPECT_EQ(birds.displayName("Bubo_scandiacus"), "Snowy Owl");
}

TEST(SpeciesLookup, DisplaysAKeyWithBlanksAroundItByItsTableEntry) {
    EXPECT_EQ(birds.displayName("  Bubo_scandiacus\n"), "Snowy Owl");
}

TEST(SpeciesLookup, DisplaysThreeBlanksAsThreeBlanks) {
    EXPECT_EQ(birds.displayName("   "), "   ");
    EXPECT_EQ(birds.displayName(""), "");
}

TEST(SpeciesLookup, DisplaysAnUnknownLabelInTitleCase) {
    EXPECT_EQ(birds.displayName("WHITE CROWNED SPARROW"), "White Crowned Sparrow");
    EXPECT_EQ(birds.displayName(" black-capped  chickadee "), "Black-Capped  Chickadee");
}

TEST(SpeciesLookup, ComparesLabelsByteForByte) {
    EXPECT_EQ(birds.displayName("snowy owl"), "Snowy Owl");
    EXPECT_EQ(birds.displayName("BUBO SCANDIACUS"), "Bubo Scandiacus");
}

// Resolving

TEST(SpeciesLookup, FindsANameHoweverItIsTyped) {
    for (const char* const typed :
         {"WHITE-CROWNED-SPARROW", "white_crowned_sparrow", "  White   crowned\tSpArRoW  ",
          "White-crowned Sparrow", "zonotrichia leucophrys", "Zonotrichia_leucophrys"}) {
        EXPECT_EQ(birds.canonicalCommonName(typed), "White-crowned Sparrow") << typed;
    }
}

TEST(SpeciesLookup, FindsANameWithAccentsTypedWithout) {
    EXPECT_EQ(birds.canonicalCommonName("pinon guan"), "Piñón Guan");
    EXPECT_EQ(birds.canonicalCommonName("PIÑÓN GUAN"), "Piñón Guan");
    EXPECT_THAT(found(birds, "pinon"), ElementsAre("Piñón Guan"));
}

TEST(SpeciesLookup, FindsNothingForAnUnknownOrEmptyText) {
    for (const char* const typed : {"", "   ", " - _", "snowy", "snowy owls"}) {
        EXPECT_EQ(birds.canonicalCommonName(typed), std::nullopt) << typed;
        EXPECT_EQ(birds.species(typed), std::nullopt) << typed;
    }
}

TEST(SpeciesLookup, AnswersASpeciesWithBlanksForTheUnderscoresOfItsLabel) {
    const SpeciesMatch owl{"Snowy Owl", "Bubo scandiacus"};
    EXPECT_EQ(birds.species("snowy owl"), owl);
    EXPECT_EQ(birds.species("Bubo scandiacus"), owl);
    EXPECT_EQ(owl.id(), "Bubo scandiacus");
}

TEST(SpeciesLookup, OneLabelStandsForACommonNameThatSeveralShare) {
    const SpeciesLookup doubled({{"Corvus_b", "Crow"}, {"Corvus_a", "Crow"}, {"Corvus_c", "Crow"}});
    const SpeciesMatch first{"Crow", "Corvus a"};
    for (const char* const typed : {"crow", "corvus a", "corvus b", "corvus c"}) {
        EXPECT_EQ(doubled.species(typed), first) << typed;
    }
    EXPECT_EQ(doubled.search("crow", 5).size(), 3U);
}

// Suggesting

TEST(SpeciesLookup, SuggestsByEveryRankInTurn) {
    const SpeciesLookup ranks({
        {"A_a", "Tern"},
        {"B_b", "Tern Island Duck"},
        {"C_c", "Arctic Tern"},
        {"D_d", "Eastern Owl"},
        {"Ternia_e", "Robin"},
        {"Aterna_f", "Wren"},
        {"G_g", "Heron"},
    });
    EXPECT_THAT(found(ranks, "tern"), ElementsAre("Tern", "Tern Island Duck", "Arctic Tern",
                                                  "Eastern Owl", "Robin", "Wren"));
}

TEST(SpeciesLookup, SuggestsAFirstWordBeforeASecondWord) {
    const SpeciesLookup pair({{"A_a", "Zebra Crow"}, {"B_b", "Aztec Zebra"}});
    EXPECT_THAT(found(pair, "zebra"), ElementsAre("Zebra Crow", "Aztec Zebra"));
}

TEST(SpeciesLookup, SuggestsAMatchOnTheScientificNameBelowEveryMatchOnACommonName) {
    const SpeciesLookup pair({{"Alba_a", "Aardvark Bird"}, {"B_b", "Zzz Malba"}});
    EXPECT_THAT(found(pair, "alba"), ElementsAre("Zzz Malba", "Aardvark Bird"));
    EXPECT_THAT(found(birds, "alb"),
                ElementsAre("Great Egret", "Pied Crow", "White-throated Sparrow"));
}

TEST(SpeciesLookup, SuggestsInTextOrderWithinARank) {
    EXPECT_THAT(found(birds, "white"),
                ElementsAre("White-crowned Sparrow", "White-throated Sparrow"));
    EXPECT_THAT(found(birds, "sparrow"),
                ElementsAre("White-crowned Sparrow", "White-throated Sparrow"));
}

TEST(SpeciesLookup, AQueryOfTwoWordsIsNoWordStart) {
    const SpeciesLookup pair({{"A_a", "Big Red Bird Crow"}, {"B_b", "Sacred Bird Crow"}});
    EXPECT_THAT(found(pair, "red bird"), ElementsAre("Big Red Bird Crow", "Sacred Bird Crow"));
    const SpeciesLookup reversed({{"A_a", "The Red Bird"}, {"B_b", "Sacred Bird"}});
    EXPECT_THAT(found(reversed, "red bird"), ElementsAre("Sacred Bird", "The Red Bird"));
}

TEST(SpeciesLookup, SuggestsNothingForLessThanTwoCharacters) {
    const SpeciesLookup tiny({{"A_a", "O"}, {"B_b", "Ou"}, {"C_c", "Ω"}});
    EXPECT_THAT(found(tiny, "o"), IsEmpty());
    EXPECT_THAT(found(tiny, "Ω"), IsEmpty());
    EXPECT_THAT(found(tiny, " o "), IsEmpty());
    EXPECT_THAT(found(tiny, "ou"), ElementsAre("Ou"));
}

TEST(SpeciesLookup, SuggestsNothingForBlanksAndHyphens) {
    EXPECT_THAT(found(birds, ""), IsEmpty());
    EXPECT_THAT(found(birds, "    "), IsEmpty());
    EXPECT_THAT(found(birds, "----"), IsEmpty());
    EXPECT_THAT(found(birds, " -_- "), IsEmpty());
}

TEST(SpeciesLookup, SuggestsAtMostAsManyAsAskedFor) {
    EXPECT_THAT(found(birds, "white", 1), ElementsAre("White-crowned Sparrow"));
    EXPECT_THAT(found(birds, "white", 0), IsEmpty());
    EXPECT_THAT(found(birds, "white", -1), IsEmpty());
}

TEST(SpeciesLookup, TakesAQueryInItsLooseForm) {
    EXPECT_THAT(found(birds, "  WHITE_crowned"), ElementsAre("White-crowned Sparrow"));
    EXPECT_THAT(found(birds, "ardea-ALBA"), ElementsAre("Great Egret"));
}

TEST(SpeciesLookup, AnEmptyTableKnowsNothing) {
    const SpeciesLookup empty({});
    EXPECT_THAT(found(empty, "owl"), IsEmpty());
    EXPECT_EQ(empty.species("owl"), std::nullopt);
    EXPECT_EQ(empty.canonicalCommonName("owl"), std::nullopt);
    EXPECT_EQ(empty.displayName("SNOWY OWL"), "Snowy Owl");
    EXPECT_THAT(empty.commonNames(), IsEmpty());
}

}  // namespace
}  // namespace ornivo::BirdClassifierLabels
