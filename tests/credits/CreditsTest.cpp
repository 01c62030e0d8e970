#include "credits/Credits.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace ornivo::Credits {
namespace {

using nlohmann::json;

json example() {
    return {
        {"version", 1},
        {"generated", "2026-11-20"},
        {"roster_status", "complete"},
        {"training",
         {{"images_total", 3},
          {"sources",
           {{{"id", "s"},
             {"name", "S"},
             {"holder", "H"},
             {"url", "https://example.org"},
             {"images", 3},
             {"licenses", {{"CC0", 2}, {"CC BY", 1}}}}}},
          {"note", "A note."}}},
        {"gbif_citation", {{"doi", "10.1/x"}, {"text", "T"}}},
        {"components",
         {{{"name", "C"},
           {"role", "R"},
           {"holder", "H"},
           {"license", "MIT"},
           {"citation", ""},
           {"url", "https://example.org"}}}},
        {"photographers", {"Ada"}},
    };
}

std::optional<Payload> decoded(const json& value) {
    return fromJson(value.dump());
}

const std::string rosterOwed =
    "Photographer roster not folded in — run build_credits.py with the dataset drive mounted.";
const std::string doiOwed =
    "No GBIF derived-dataset DOI — register the pull and set it in build_credits.py.";
using Owed = std::vector<std::string>;

}  // namespace

TEST(Credits, EveryFieldIsRead) {
    const auto credits = decoded(example());
    ASSERT_TRUE(credits);
    EXPECT_EQ(credits->version, 1);
    EXPECT_EQ(credits->generated, "2026-11-20");
    EXPECT_EQ(credits->training.imagesTotal, 3);
    ASSERT_EQ(credits->training.sources.size(), 1u);
    EXPECT_EQ(credits->training.sources[0].holder, "H");
    EXPECT_EQ(credits->training.note, "A note.");
    EXPECT_EQ(credits->gbifCitation, (Citation{"10.1/x", "T"}));
    ASSERT_EQ(credits->components.size(), 1u);
    EXPECT_EQ(credits->components[0].license, "MIT");
    EXPECT_EQ(credits->photographers, Owed{"Ada"});
}

TEST(Credits, AFileThatLacksAKeyDoesNotDecode) {
    const json whole = example();
    for (const auto& [key, value] : whole.items()) {
        json lacking = whole;
        lacking.erase(key);
        EXPECT_FALSE(decoded(lacking)) << key;
    }
    for (const auto* pointer :
         {"/training/images_total", "/training/sources", "/training/note", "/training/sources/0/id",
          "/training/sources/0/name", "/training/sources/0/holder", "/training/sources/0/url",
          "/training/sources/0/images", "/training/sources/0/licenses", "/gbif_citation/doi",
          "/gbif_citation/text", "/components/0/name", "/components/0/role", "/components/0/holder",
          "/components/0/license", "/components/0/citation", "/components/0/url"}) {
        json wrong = example();
        wrong[json::json_pointer(pointer)] = nullptr;
        EXPECT_FALSE(decoded(wrong)) << pointer;
    }
    EXPECT_FALSE(fromJson("{"));
}

TEST(Credits, AnyOtherRosterStatusIsIncompleteEvenWithNames) {
    json pending = example();
    pending["roster_status"] = "pending";
    EXPECT_FALSE(rosterIsComplete(decoded(pending)));
    EXPECT_TRUE(rosterIsComplete(decoded(example())));
}

TEST(Credits, ACompleteRosterWithoutNamesIsIncomplete) {
    json empty = example();
    empty["photographers"] = json::array();
    EXPECT_FALSE(rosterIsComplete(decoded(empty)));
}

TEST(Credits, ADoiOfBlanksCountsAsNone) {
    EXPECT_FALSE((Citation{"  ", "T"}).hasDOI());
    EXPECT_FALSE((Citation{"", "T"}).hasDOI());
    EXPECT_TRUE((Citation{" 10.1/x ", "T"}).hasDOI());
}

TEST(Credits, WhatIsOwedIsSaidInOrder) {
    EXPECT_EQ(outstandingObligations(std::nullopt),
              Owed{"credits.json is missing from the bundle."});
    EXPECT_EQ(outstandingObligations(decoded(example())), Owed{});
    json owing = example();
    owing["roster_status"] = "pending";
    EXPECT_EQ(outstandingObligations(decoded(owing)), Owed{rosterOwed});
    owing["gbif_citation"]["doi"] = " ";
    EXPECT_EQ(outstandingObligations(decoded(owing)), (Owed{rosterOwed, doiOwed}));
}

TEST(Credits, ASourceIsSummedUpInWords) {
    Source source;
    EXPECT_EQ(source.summary("en_GB"), std::nullopt);
    source.images = 1;
    EXPECT_EQ(source.summary("en_GB"), "1 photograph");
    source.images = 5060;
    EXPECT_EQ(source.summary("en_GB"), "5,060 photographs");
    source.licenses = {{"CC0", 2}, {"CC BY", 1}};
    EXPECT_EQ(source.summary("en_GB"), "5,060 photographs · CC BY, CC0");
    source.images = 1234567;
    source.licenses.clear();
    EXPECT_EQ(source.summary("en_GB"), "1,234,567 photographs");
}

TEST(Credits, TheShippedCreditsAreThere) {
    ASSERT_TRUE(payload());
    EXPECT_FALSE(sources().empty());
    EXPECT_FALSE(components().empty());
    EXPECT_FALSE(payload()->training.note.empty());
    int images = 0;
    for (const Source& source : sources()) images += source.images;
    EXPECT_EQ(images, payload()->training.imagesTotal);
}

TEST(Credits, WhatIsSaidOfTheShippedCreditsIsWorkedOutOnce) {
    EXPECT_EQ(rosterIsComplete(), rosterIsComplete(payload()));
    EXPECT_EQ(outstandingObligations(), outstandingObligations(payload()));
    EXPECT_EQ(&outstandingObligations(), &outstandingObligations());
}

}  // namespace ornivo::Credits
