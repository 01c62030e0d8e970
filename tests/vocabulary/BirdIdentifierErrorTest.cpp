#include "vocabulary/BirdIdentifierError.h"

#include <gtest/gtest.h>

namespace ornivo {

TEST(BirdIdentifierError, EachCaseHasItsWords) {
    EXPECT_EQ(BirdIdentifierError::identificationFailed("as it stands").localizedDescription(),
              "as it stands");
    EXPECT_EQ(BirdIdentifierError::modelNotFound().localizedDescription(),
              "BirdClassifier.mlpackage was not found in the package bundle.");
    EXPECT_EQ(BirdIdentifierError::imageTooSmall().localizedDescription(),
              "Image is smaller than 224×224 pixels.");
}

TEST(BirdIdentifierError, AMismatchHasOneBlankBetweenItsSentenceAndTheDetails) {
    EXPECT_EQ(BirdIdentifierError::labelSetMismatch("Details.").localizedDescription(),
              "The bundled classifier does not match its common-name lookup. Details.");
}

TEST(BirdIdentifierError, ErrorsAreEqualByCaseAndWords) {
    EXPECT_EQ(BirdIdentifierError::identificationFailed("a"),
              BirdIdentifierError::identificationFailed("a"));
    EXPECT_FALSE(BirdIdentifierError::identificationFailed("a") ==
                 BirdIdentifierError::identificationFailed("b"));
    EXPECT_FALSE(BirdIdentifierError::identificationFailed(
                     BirdIdentifierError::modelNotFound().localizedDescription()) ==
                 BirdIdentifierError::modelNotFound());
}

}  // namespace ornivo
