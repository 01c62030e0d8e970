// Feeds every loader of a table with damaged files: each must answer or fail in its own words, and
// never crash.

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>

#include "credits/Credits.h"
#include "identification/BundleFingerprint.h"
#include "identification/PlaceGazetteer.h"
#include "identification/RangeTable.h"
#include "identification/SeasonTable.h"
#include "vocabulary/JsonFields.h"

namespace ornivo {
namespace {

const std::string regions = R"({"version": 1, "source": "s", "regions": [{"id": "a", "name": "A",
    "countries": ["X"], "latitudes": [-10, 30.5], "longitudes": [60, 100], "refines": "b",
    "labels": ["A_a", "B_b"]}, {"id": "b", "name": "B", "latitudes": [0, 1],
    "longitudes": [2, 3], "labels": ["C_c"]}]})";
const std::string months = R"({"version": 2, "source": "s", "months": {"1": ["A"], "2": ["A"],
    "3": ["A"], "4": ["A"], "5": [], "6": ["A"], "7": ["A"], "8": ["A"], "9": ["A"], "10": ["A"],
    "11": ["A"], "12": ["A", "B"]}})";
const std::string places = R"({"places": [{"name": "Köln", "latitude": 50.9, "longitude": 6.9,
    "regionID": "a", "aliases": ["Cologne"]}, {"name": "X", "latitude": 1, "longitude": 2,
    "regionID": "b"}]})";
const std::string credits = R"({"version": 1, "generated": "g", "roster_status": "complete",
    "training": {"images_total": 1, "sources": [{"id": "i", "name": "n", "holder": "h", "url": "u",
    "images": 1, "licenses": {"CC0": 1}}], "note": "n"}, "gbif_citation": {"doi": "", "text": "t"},
    "components": [], "photographers": ["p"]})";

/// The text with a few bytes changed, taken out, doubled or cut off.
std::string damaged(std::string text, std::mt19937& random) {
    const auto below = [&](std::size_t bound) { return random() % bound; };
    const std::string signs = "{}[]\",:0-9e+\\u\xff\x00 n";
    for (std::size_t changes = 1 + below(4); changes > 0 && !text.empty(); --changes) {
        const std::size_t at = below(text.size());
        switch (below(4)) {
            case 0:
                text[at] = signs[below(signs.size())];
                break;
            case 1:
                text.erase(at, 1 + below(20));
                break;
            case 2:
                text.insert(at, text.substr(below(text.size()), below(30)));
                break;
            default:
                text.resize(at);
        }
    }
    return text;
}

void feed(const std::string& whole, const std::function<void(const std::string&)>& load) {
    std::mt19937 random(20261120);
    for (int round = 0; round < 5000; ++round) load(damaged(whole, random));
    load("");
    load(std::string(100'000, '['));
    load("{\"regions\":" + std::string(100'000, '{'));
}

}  // namespace

TEST(TableFuzz, ADamagedRangeTableLoadsOrIsMalformed) {
    EXPECT_NO_THROW(RangeTable::fromJson(regions));
    int loaded = 0;
    int malformed = 0;
    feed(regions, [&](const std::string& text) {
        try {
            const auto table = RangeTable::fromJson(text);
            EXPECT_FALSE(table.regions().empty());
            ++loaded;
        } catch (const RangeTable::LoadError& error) {
            EXPECT_TRUE(
                error.localizedDescription().starts_with("range_regions.json is malformed. "));
            ++malformed;
        }
    });
    EXPECT_GT(loaded, 0);
    EXPECT_GT(malformed, 0);
}

TEST(TableFuzz, ADamagedSeasonTableLoadsWholeOrIsAbsent) {
    EXPECT_TRUE(SeasonTable::fromJson(months));
    feed(months, [](const std::string& text) {
        const auto table = SeasonTable::fromJson(text);
        EXPECT_TRUE(!table || table->labelsByMonth().size() == 12u);
    });
}

TEST(TableFuzz, DamagedPlacesLoadOrAreAbsentAndAnswerWhatPeopleType) {
    EXPECT_TRUE(PlaceGazetteer::fromJson(places));
    feed(places, [](const std::string& text) {
        const auto gazetteer = PlaceGazetteer::fromJson(text);
        if (!gazetteer) return;
        EXPECT_FALSE(gazetteer->places().empty());
        gazetteer->match(text.substr(0, 40));
        gazetteer->suggestions("k", 3);
    });
}

TEST(TableFuzz, DamagedCreditsLoadOrAreAbsent) {
    EXPECT_TRUE(Credits::fromJson(credits));
    feed(credits,
         [](const std::string& text) { Credits::outstandingObligations(Credits::fromJson(text)); });
}

TEST(TableFuzz, ADamagedSummaryLoadsOrFailsToDecode) {
    feed(BundleFingerprint::Summary().toJson(), [](const std::string& text) {
        try {
            BundleFingerprint::Summary::fromJson(text);
        } catch (const DecodingError& error) {
            EXPECT_FALSE(error.localizedDescription().empty());
        }
    });
}

}  // namespace ornivo
