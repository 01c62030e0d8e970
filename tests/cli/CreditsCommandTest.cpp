#include "cli/CreditsCommand.h"

#include <gmock/gmock.h>

#include "cli/CreditsText.h"
#include "cli/SortScene.h"

namespace ornivo::cli {

using namespace ornivo::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

const std::string learnedFrom =
    "  Ornivo learned to recognise birds from photographs shared under open licences by "
    "naturalists around the world. It could not exist without them.";
const std::string rosterIsPending =
    "  The per-photographer roster has not been folded into this build yet. Sources and licences "
    "above are accurate; individual names are pending.";

Credits::Payload complete() {
    Credits::Payload credits;
    credits.rosterStatus = "complete";
    credits.training.sources = {
        {"a", "Archive", "its members", "https://example.org/a", 5060, {{"CC0", 2}, {"CC BY", 1}}},
        {"b", "Box", "a friend", "", 0, {}}};
    credits.training.note = "A note.";
    credits.components = {{"Lib", "draws", "H", "MIT", "cite", "https://example.org/lib"}};
    credits.gbifCitation = {"10.1/x", "A citation."};
    credits.photographers = {"Ada", "Zoë"};
    return credits;
}

}  // namespace

TEST(CreditsText, TellsSourcesRosterComponentsAndCitation) {
    EXPECT_THAT(
        creditsText(complete(), "en_GB"),
        ElementsAre("The photographs", learnedFrom, "  Archive: 5,060 photographs · CC BY, CC0",
                    "    https://example.org/a", "  Box: a friend", "  A note.", "",
                    "Photographers", "  Ada", "  Zoë", "", "Built with", "  Lib · MIT: draws",
                    "    https://example.org/lib", "", "Citation", "  A citation.",
                    "  https://doi.org/10.1/x"));
}

TEST(CreditsText, ARosterThatIsNotCompleteNamesNobody) {
    auto credits = complete();
    credits.rosterStatus = "pending";
    credits.gbifCitation.doi = " ";
    EXPECT_THAT(
        creditsText(credits, "en_GB"),
        ElementsAre("The photographs", learnedFrom, "  Archive: 5,060 photographs · CC BY, CC0",
                    "    https://example.org/a", "  Box: a friend", "  A note.", "",
                    "Photographers", rosterIsPending, "", "Built with", "  Lib · MIT: draws",
                    "    https://example.org/lib", "", "Citation", "  A citation."));
}

TEST(CreditsText, WithoutCreditsTheFixedTextsStand) {
    EXPECT_THAT(creditsText(std::nullopt),
                ElementsAre("The photographs", learnedFrom, "", "Photographers", rosterIsPending));
}

TEST(CreditsCommand, TellsOfTheShippedCredits) {
    const Ending ending = Program::run({"credits"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err, "");
    for (const auto& component : Credits::components()) {
        EXPECT_THAT(ending.out, HasSubstr("\n  " + component.name + " · "));
    }
    for (const auto& source : Credits::sources()) {
        EXPECT_THAT(ending.out, HasSubstr("\n  " + source.name + ": "));
    }
    EXPECT_THAT(ending.out, HasSubstr("\nCitation\n  " + Credits::payload()->gbifCitation.text));
}

TEST(CreditsCommand, WhatIsOwedIsExitCode1) {
    const Ending ending = Program::run({"credits", "--owed"});
    EXPECT_EQ(linesOf(ending.out), Credits::outstandingObligations());
    EXPECT_EQ(ending.code, 1) << "the roster and the DOI are still owed";
}

TEST(CreditsCommand, TheHelpTeachesByExamplesThatFitATerminal) {
    const std::string help = Program::run({"credits", "--help"}).out;
    EXPECT_THAT(help, HasSubstr("\nExamples:\n  ornivo-cli credits\n"));
    for (const auto& line : linesOf(help)) EXPECT_LE(line.size(), 80U) << line;
}

}  // namespace ornivo::cli
