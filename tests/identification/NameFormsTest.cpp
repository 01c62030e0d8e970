#include "identification/NameForms.h"

#include <gtest/gtest.h>

namespace ornivo::BirdClassifierLabels {
namespace {

TEST(NameForms, NormalizingFoldsTrimsAndMakesEveryRunOfWhiteSpaceOneBlank) {
    EXPECT_EQ(normalize(" \tÉrable \n  GRÍS\r\n"), "erable gris");
    EXPECT_EQ(normalize("White-crowned_Sparrow"), "white-crowned_sparrow");
    EXPECT_EQ(normalize("   "), "");
}

TEST(NameForms, TheLooseFormTakesHyphensAndUnderscoresAsBlanks) {
    EXPECT_EQ(normalizeLoose("White-crowned Sparrow"), "white crowned sparrow");
    EXPECT_EQ(normalizeLoose("WHITE_CROWNED_SPARROW"), "white crowned sparrow");
    EXPECT_EQ(normalizeLoose("  white  crowned -_ sparrow "), "white crowned sparrow");
    EXPECT_EQ(normalizeLoose(" - _ "), "");
}

TEST(NameForms, TitleCaseGivesEveryWordACapital) {
    EXPECT_EQ(titleCased("WHITE CROWNED SPARROW"), "White Crowned Sparrow");
    EXPECT_EQ(titleCased("mALLARD"), "Mallard");
    EXPECT_EQ(titleCased(""), "");
}

TEST(NameForms, TitleCaseGivesThePartAfterAHyphenACapitalToo) {
    EXPECT_EQ(titleCased("black-capped chickadee"), "Black-Capped Chickadee");
    EXPECT_EQ(titleCased("-a--b-"), "-A--B-");
}

TEST(NameForms, TitleCaseKeepsDoubledBlanks) {
    EXPECT_EQ(titleCased("snowy  owl"), "Snowy  Owl");
}

}  // namespace
}  // namespace ornivo::BirdClassifierLabels
