#include "vocabulary/BirdSpecies.h"

#include <gtest/gtest.h>

namespace ornivo {

TEST(BirdSpecies, TheIdIsBothNamesInLowerCaseWithoutBlanksAtItsEnds) {
    EXPECT_EQ((BirdSpecies{" Bald Eagle ", "Haliaeetus leucocephalus "}).id(),
              "bald eagle |haliaeetus leucocephalus");
}

TEST(BirdSpecies, TheDisplayNameIsTheCommonNameIfThereIsOne) {
    EXPECT_EQ((BirdSpecies{"Osprey", "Pandion haliaetus"}).displayName(), "Osprey");
}

TEST(BirdSpecies, WithoutACommonNameTheScientificNameIsShown) {
    EXPECT_EQ((BirdSpecies{"", "Pandion haliaetus"}).displayName(), "Pandion haliaetus");
}

TEST(BirdSpecies, EqualityComparesBothNames) {
    EXPECT_EQ((BirdSpecies{"a", "b"}), (BirdSpecies{"a", "b"}));
    EXPECT_FALSE((BirdSpecies{"a", "b"}) == (BirdSpecies{"A", "b"}));
    EXPECT_FALSE((BirdSpecies{"a", "b"}) == (BirdSpecies{"a", "c"}));
}

}  // namespace ornivo
