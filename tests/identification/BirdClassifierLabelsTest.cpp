#include "identification/BirdClassifierLabels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ornivo {
namespace {

using BirdClassifierLabels::SpeciesMatch;
using ::testing::IsEmpty;

TEST(BirdClassifierLabels, TheBundledTableHasEverySpeciesOfTheClassifier) {
    EXPECT_EQ(BirdClassifierLabels::speciesCount(), 1305);
    EXPECT_EQ(BirdClassifierLabels::commonNames().size(), 1305U);
    EXPECT_EQ(BirdClassifierLabels::commonNames().at("Asio_otus"), "Long-eared Owl");
}

TEST(BirdClassifierLabels, EveryNameInTheBundledTableFindsItsSpecies) {
    for (const auto& [label, name] : BirdClassifierLabels::commonNames()) {
        EXPECT_EQ(BirdClassifierLabels::canonicalCommonName(name), name);
        EXPECT_EQ(BirdClassifierLabels::displayName(label), name);
        const auto byLabel = BirdClassifierLabels::species(label);
        ASSERT_TRUE(byLabel) << label;
        EXPECT_EQ(byLabel->commonName, name);
    }
}

TEST(BirdClassifierLabels, EveryNameInTheBundledTableIsItsOwnFirstSuggestion) {
    for (const auto& [label, name] : BirdClassifierLabels::commonNames()) {
        const auto suggestions = BirdClassifierLabels::search(name, 1);
        ASSERT_EQ(suggestions.size(), 1U) << name;
        EXPECT_EQ(suggestions.front().commonName, name);
    }
}

TEST(BirdClassifierLabels, FindsASpeciesByEitherName) {
    const SpeciesMatch owl{"Long-eared Owl", "Asio otus"};
    EXPECT_EQ(BirdClassifierLabels::species("LONG EARED OWL"), owl);
    EXPECT_EQ(BirdClassifierLabels::species("asio otus"), owl);
    EXPECT_EQ(BirdClassifierLabels::species("no such bird"), std::nullopt);
}

TEST(BirdClassifierLabels, AQueryOfOneCharacterSuggestsNothing) {
    EXPECT_THAT(BirdClassifierLabels::search("o", 10), IsEmpty());
    EXPECT_EQ(BirdClassifierLabels::search("owl", 3).size(), 3U);
}

TEST(BirdClassifierLabels, GradesABareConfidence) {
    EXPECT_EQ(BirdClassifierLabels::confidenceLabel(0.8, 0.6), "High");
    EXPECT_EQ(BirdClassifierLabels::confidenceLabel(0.79, 0.6), "Good");
    EXPECT_EQ(BirdClassifierLabels::confidenceLabel(0.59, 0.6), "Low");
}

TEST(BirdClassifierLabels, AnAnswerIsDisplayedUnderTheNameOfItsBestCandidate) {
    const IdentifiedSpecies::Candidate top{"Asio_otus", 0.9};
    EXPECT_EQ(displayName(IdentifiedSpecies{top, {top, {"Pica_pica", 0.1}}}), "Long-eared Owl");
    const IdentifiedSpecies::Candidate unknown{"BALD EAGLE", 0.9};
    EXPECT_EQ(displayName(IdentifiedSpecies{unknown, {unknown}}), "Bald Eagle");
}

}  // namespace
}  // namespace ornivo
