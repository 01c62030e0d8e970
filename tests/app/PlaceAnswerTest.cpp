#include "app/presentation/PlaceAnswer.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

const std::optional<PlaceGazetteer> gazetteer(std::vector<PlaceGazetteer::Place>{
    {"Kerala", {"God's own country"}, 10, 76, "south-india"},
    {"South India", {}, 12, 77, "south-india"},
    {"Atlantis", {}, 0, 0, "sunken"},
});

const std::optional<RangeTable>& rangeTable() {
    static const std::optional<RangeTable> table = RangeTable::fromJson(R"({
        "version": 1, "source": "test",
        "regions": [{"id": "south-india", "name": "South India", "latitudes": [8, 16],
                     "longitudes": [74, 80], "labels": ["A"]}]})");
    return table;
}

PlaceAnswer found(const char* regionID, const char* note) {
    return {regionID, QString::fromUtf8(note)};
}

PlaceAnswer refused(const char* note) {
    return {std::nullopt, QString::fromUtf8(note)};
}

}  // namespace

TEST(PlaceAnswer, APlaceInARegionNamesBoth) {
    EXPECT_EQ(placeAnswer("Kerala", gazetteer, rangeTable()),
              found("south-india", "Kerala → South India."));
}

TEST(PlaceAnswer, AnotherSpellingShowsThePlacesName) {
    EXPECT_EQ(placeAnswer(" God's own country ", gazetteer, rangeTable()),
              found("south-india", "Kerala → South India."));
}

TEST(PlaceAnswer, APlaceThatEqualsARegionIsUsed) {
    EXPECT_EQ(placeAnswer("south india", gazetteer, rangeTable()),
              found("south-india", "Using South India."));
}

TEST(PlaceAnswer, ARegionOutsideTheTableGoesByItsId) {
    EXPECT_EQ(placeAnswer("Atlantis", gazetteer, rangeTable()),
              found("sunken", "Atlantis → sunken."));
    EXPECT_EQ(placeAnswer("Kerala", gazetteer, std::nullopt),
              found("south-india", "Kerala → south-india."));
}

TEST(PlaceAnswer, AnUnknownPlaceIsNamedAsTypedWithoutItsBlanks) {
    EXPECT_EQ(placeAnswer("  Nowhere %1 ", gazetteer, rangeTable()),
              refused("Couldn't place “Nowhere %1”. Try a state, country or major city."));
}

TEST(PlaceAnswer, WithoutAGazetteerNoPlaceIsFound) {
    EXPECT_EQ(placeAnswer("Kerala", std::nullopt, rangeTable()),
              refused("Couldn't place “Kerala”. Try a state, country or major city."));
}

TEST(PlaceAnswer, BlanksGiveNoNote) {
    for (const char* typed : {"", "   ", "\t\n"}) {
        EXPECT_EQ(placeAnswer(typed, gazetteer, rangeTable()), PlaceAnswer());
    }
}

}  // namespace ornivo::app
