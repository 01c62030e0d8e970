#include "cli/TargetSpecies.h"

#include <gtest/gtest.h>

#include "cli/UsageError.h"
#include "identification/BirdClassifierLabels.h"

namespace ornivo::cli {

namespace {

using Species = std::vector<BirdSpecies>;

const BirdSpecies owl{"Long-eared Owl", "Asio otus"};
const std::string known = std::to_string(BirdClassifierLabels::speciesCount());

}  // namespace

TEST(TargetSpecies, AKnownBirdGetsBothNamesHoweverItWasTyped) {
    for (const char* const typed :
         {"Long-eared Owl", "long eared owl", "LONG_EARED  OWL", " Long-Eared-Owl\n", "asio otus",
          "Asio_otus", "Long-eared Owl (Asio otus)", "my owl (asio otus)",
          "Long-eared Owl - Asio otus", "Long-eared Owl|Asio otus", "Long-eared Owl -- Asio otus",
          "Long-eared Owl; Asio otus; more", "some owl | Asio otus"}) {
        EXPECT_EQ(targetSpecies({typed}), Species{owl}) << typed;
    }
}

TEST(TargetSpecies, AnyOtherStaysAsTyped) {
    struct Row {
        const char* typed;
        BirdSpecies expected;
    };
    for (const Row& row :
         {Row{"  Dodo ", {"Dodo", ""}},
          Row{"Dodo (Raphus cucullatus)", {"Dodo", "Raphus cucullatus"}},
          Row{"Dodo (of old) (Raphus)", {"Dodo (of old)", "Raphus"}},
          Row{"(Raphus)", {"", "Raphus"}}, Row{")Dodo(", {")Dodo(", ""}},
          Row{"Dodo - Raphus", {"Dodo", "Raphus"}}, Row{"Dodo-Raphus", {"Dodo-Raphus", ""}},
          Row{" - Dodo - ", {"- Dodo -", ""}}, Row{"|Dodo||Raphus", {"Dodo", "Raphus"}}}) {
        EXPECT_EQ(targetSpecies({row.typed}), Species{row.expected}) << row.typed;
    }
}

TEST(TargetSpecies, EachIsTakenOnceInTheOrderTyped) {
    EXPECT_EQ(targetSpecies({"Dodo", "asio otus", "DODO", "Long-eared owl", "Moa"}),
              (Species{{"Dodo", ""}, owl, {"Moa", ""}}));
    EXPECT_EQ(targetSpecies({}), Species{});
}

TEST(TargetSpecies, ATextWithoutANameIsRefused) {
    for (const std::string typed : {"", "  ", "()", " ( ) "}) {
        try {
            targetSpecies({"Dodo", typed});
            ADD_FAILURE() << typed;
        } catch (const UsageError& error) {
            EXPECT_EQ(error.what(), "\"" + typed + "\" is no name of a bird.");
        }
    }
}

TEST(TargetSpecies, BothNamesAreShownAsFarAsTheyAreThere) {
    EXPECT_EQ(namesOf(owl), "Long-eared Owl (Asio otus)");
    EXPECT_EQ(namesOf({"Dodo", ""}), "Dodo");
    EXPECT_EQ(namesOf({"", "Raphus"}), "Raphus");
}

TEST(TargetSpecies, ThoseThatFindNothingAreNamed) {
    EXPECT_EQ(unrecognisedMessage({}), "");
    EXPECT_EQ(unrecognisedMessage({owl}), "");
    EXPECT_EQ(unrecognisedMessage({owl, {"Dodo", "Raphus"}}),
              "Dodo is not one of the " + known +
                  " species this build can recognise — a search for it will find nothing.");
    EXPECT_EQ(unrecognisedMessage({{"Dodo", ""}, owl, {"", "Dinornis"}}),
              "Dodo, Dinornis are not among the " + known +
                  " species this build can recognise — a search for them will find nothing.");
}

}  // namespace ornivo::cli
