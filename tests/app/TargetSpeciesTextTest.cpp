#include "app/presentation/TargetSpeciesText.h"

#include <gtest/gtest.h>

namespace ornivo::app {

TEST(TargetSpeciesText, TheFieldSaysHowManySpeciesThereAre) {
    EXPECT_EQ(speciesFieldPlaceholder(1250), "Name one of 1250 species");
}

TEST(TargetSpeciesText, AKnownSpeciesHasAnotherMarkThanAnUnknownOne) {
    EXPECT_EQ(speciesMark(true), (Mark{"checkmark-circle", TonedText::Tone::Accent}));
    EXPECT_EQ(speciesMark(false), (Mark{"warning-triangle", TonedText::Tone::Warn}));
}

}  // namespace ornivo::app
