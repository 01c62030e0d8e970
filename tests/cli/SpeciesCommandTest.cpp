#include "cli/SpeciesCommand.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/SortScene.h"
#include "identification/BirdClassifierLabels.h"

namespace ornivo::cli {

using namespace ornivo::testing;
using ::testing::Contains;
using ::testing::Each;
using ::testing::StartsWith;

namespace {

/// A species with a name of two words that other species share one of.
BirdClassifierLabels::SpeciesMatch someSpecies() {
    return BirdClassifierLabels::search("owl", 1).at(0);
}

std::string nameOf(const BirdClassifierLabels::SpeciesMatch& match) {
    return match.commonName + " (" + match.scientificName + ")";
}

}  // namespace

TEST(SpeciesCommand, AnExactNameOfEitherKindIsTicked) {
    const auto species = someSpecies();
    for (const auto& name : {species.commonName, species.scientificName}) {
        const Ending ending = Program::run({"species", name});
        EXPECT_EQ(ending.code, 0);
        EXPECT_EQ(linesOf(ending.out).at(0), "✓ " + nameOf(species));
        EXPECT_THAT(linesOf(ending.out), ::testing::Not(Contains("  " + nameOf(species))));
    }
}

TEST(SpeciesCommand, SeveralWordsNeedNoQuotes) {
    const auto species = someSpecies();
    Arguments words{"species"};
    std::string word;
    for (std::istringstream text(species.scientificName); text >> word;) words.push_back(word);
    EXPECT_EQ(words.size(), 3U);
    EXPECT_EQ(linesOf(Program::run(words).out).at(0), "✓ " + nameOf(species));
}

TEST(SpeciesCommand, PartOfANameGivesEightSuggestionsUnlessSaidOtherwise) {
    const auto suggestions = linesOf(Program::run({"species", "owl"}).out);
    EXPECT_EQ(suggestions.size(), 8U);
    EXPECT_THAT(suggestions, Each(StartsWith("  ")));
    EXPECT_EQ(linesOf(Program::run({"species", "owl", "--limit", "3"}).out).size(), 3U);
}

TEST(SpeciesCommand, AnUnknownBirdIsSaidToBeUnknown) {
    const std::string sentence = "Not among the " +
                                 std::to_string(BirdClassifierLabels::speciesCount()) +
                                 " species this version knows.\n";
    for (const char* const query : {"xyzzy", "", "-", "o"}) {
        const Ending ending = Program::run({"species", "--", query});
        EXPECT_EQ(ending.code, 0);
        EXPECT_EQ(ending.out, sentence);
    }
}

TEST(SpeciesCommand, JsonIsOneObject) {
    const auto species = someSpecies();
    const auto found =
        nlohmann::json::parse(Program::run({"species", "--json", species.commonName}).out);
    EXPECT_EQ(found["query"], species.commonName);
    EXPECT_EQ(found["match"]["commonName"], species.commonName);
    EXPECT_EQ(found["match"]["scientificName"], species.scientificName);
    EXPECT_EQ(found["suggestions"][0], found["match"]);
    EXPECT_EQ(found["speciesCount"], BirdClassifierLabels::speciesCount());

    const auto unknown = nlohmann::json::parse(Program::run({"species", "--json", "xyz\xff"}).out);
    EXPECT_EQ(unknown["query"], "xyz\uFFFD");
    EXPECT_EQ(unknown["match"], nullptr);
    EXPECT_TRUE(unknown["suggestions"].empty());
}

TEST(SpeciesCommand, ALimitThatIsNoNumberIsExitCode2) {
    for (const std::string limit : {"many", "-1", "3.5", ""}) {
        const Ending ending = Program::run({"species", "owl", "--limit", limit});
        EXPECT_EQ(ending.code, 2);
        EXPECT_EQ(ending.err, "--limit takes a whole number; \"" + limit + "\" is not that.\n");
    }
}

}  // namespace ornivo::cli
