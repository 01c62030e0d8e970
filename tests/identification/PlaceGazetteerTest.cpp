#include "identification/PlaceGazetteer.h"

#include <gtest/gtest.h>

#include <string>

namespace ornivo {
namespace {

using Place = PlaceGazetteer::Place;

Place named(std::string name, std::vector<std::string> aliases = {}) {
    return {std::move(name), std::move(aliases), 1, 2, "r"};
}

std::string matched(const std::vector<Place>& places, std::string_view typed) {
    const auto place = PlaceGazetteer(places).match(typed);
    return place ? place->name : "none";
}

std::vector<std::string> suggested(const std::vector<Place>& places, std::string_view typed,
                                   std::size_t limit = 10) {
    std::vector<std::string> names;
    for (const Place& place : PlaceGazetteer(places).suggestions(typed, limit)) {
        names.push_back(place.name);
    }
    return names;
}

using Names = std::vector<std::string>;

}  // namespace

TEST(PlaceGazetteer, OneLetterMatchesNothingAndSuggestsAllThatHoldItNameStartersFirst) {
    const std::vector<Place> places{named("Oban"), named("Bergen"), named("Rome", {"Bella"}),
                                    named("Texel")};
    EXPECT_EQ(matched(places, "b"), "none");
    EXPECT_EQ(suggested(places, "b"), (Names{"Bergen", "Oban", "Rome"}));
}

TEST(PlaceGazetteer, PunctuationAloneMatchesAndSuggestsNothing) {
    const std::vector<Place> places{named("Oban")};
    EXPECT_EQ(matched(places, "-- !"), "none");
    EXPECT_EQ(suggested(places, "-- !"), Names{});
}

TEST(PlaceGazetteer, AWholeNameWinsOverALongerOneAndItsBeginningIsAmbiguous) {
    const std::vector<Place> places{named("Salem"), named("Salemi")};
    EXPECT_EQ(matched(places, "salem"), "Salem");
    EXPECT_EQ(matched(places, "sale"), "none");
}

TEST(PlaceGazetteer, SwappedLettersAreTooFarInFiveCharactersAndOneTooManyIsFoundInSeven) {
    EXPECT_EQ(matched({named("Delhi")}, "dehli"), "none");
    EXPECT_EQ(matched({named("Kerala")}, "keralla"), "Kerala");
}

TEST(PlaceGazetteer, OfTwoPlacesAtEqualDistanceTheEarlierWins) {
    EXPECT_EQ(matched({named("Bonn"), named("Born")}, "bomn"), "Bonn");
    EXPECT_EQ(matched({named("Born"), named("Bonn")}, "boxn"), "Born");
}

TEST(PlaceGazetteer, ANearerPlaceWinsOverAnEarlierOne) {
    EXPECT_EQ(matched({named("Keralii"), named("Kerala")}, "keralq"), "Kerala");
}

TEST(PlaceGazetteer, OfANameAndAnAliasAtEqualDistanceThePlaceIsTheSame) {
    EXPECT_EQ(matched({named("Bonna", {"Bonnb"}), named("Other")}, "bonnc"), "Bonna");
}

TEST(PlaceGazetteer, AFullStopHyphenCapitalsAndAccentsDoNotMatter) {
    const std::vector<Place> places{named("St. Kilda"), named("Saint-Étienne")};
    EXPECT_EQ(matched(places, "st kilda"), "St. Kilda");
    EXPECT_EQ(matched(places, "SAINT ETIENNE!"), "Saint-Étienne");
}

TEST(PlaceGazetteer, AnAmpersandIsTheWordAnd) {
    EXPECT_EQ(matched({named("Trinidad & Tobago")}, "trinidad and tobago"), "Trinidad & Tobago");
    EXPECT_EQ(matched({named("Trinidad and Tobago")}, "Trinidad & Tobago"), "Trinidad and Tobago");
}

TEST(PlaceGazetteer, AllNamesAreTriedBeforeAnyAlias) {
    EXPECT_EQ(matched({named("Bengaluru", {"Oban"}), named("Oban")}, "oban"), "Oban");
    EXPECT_EQ(matched({named("Bengaluru", {"Bangalore"}), named("Oban")}, "bangalore"),
              "Bengaluru");
}

TEST(PlaceGazetteer, TheOnlyPlaceThatBeginsSoIsMeant) {
    const std::vector<Place> places{named("Bengaluru", {"Bangalore"}), named("Oban")};
    EXPECT_EQ(matched(places, "bang"), "Bengaluru");
    EXPECT_EQ(matched(places, "ben"), "Bengaluru");
    EXPECT_EQ(matched(places, "be"), "Bengaluru");
}

TEST(PlaceGazetteer, SuggestionsStopAtTheLimit) {
    EXPECT_EQ(suggested({named("Aa"), named("Ab"), named("Ac")}, "a", 2), (Names{"Aa", "Ab"}));
    EXPECT_EQ(suggested({named("Aa")}, "a", 0), Names{});
}

TEST(PlaceGazetteer, AnObjectThatLacksAMemberOrHasAWrongOneIsPassedOver) {
    const auto gazetteer = PlaceGazetteer::fromJson(R"({"places": [
        {"latitude": 1, "longitude": 2, "regionID": "r"},
        {"name": 5, "latitude": 1, "longitude": 2, "regionID": "r"},
        {"name": "a", "latitude": "1", "longitude": 2, "regionID": "r"},
        {"name": "b", "latitude": 1, "regionID": "r"},
        {"name": "c", "latitude": 1, "longitude": 2},
        {"name": "Kept", "latitude": 95, "longitude": 2.5, "regionID": "r", "aliases": ["K"]}]})");
    ASSERT_TRUE(gazetteer);
    EXPECT_EQ(gazetteer->places(), (std::vector<Place>{{"Kept", {"K"}, 95, 2.5, "r"}}));
}

TEST(PlaceGazetteer, WrongAliasesReadAsNone) {
    for (const auto* aliases : {"5", "\"x\"", "[1]", "[\"x\", 1]", "{}", "null"}) {
        const auto gazetteer = PlaceGazetteer::fromJson(
            R"({"places": [{"name": "N", "latitude": 1, "longitude": 2, "regionID": "r",
                "aliases": )" +
            std::string(aliases) + "}]}");
        ASSERT_TRUE(gazetteer) << aliases;
        EXPECT_TRUE(gazetteer->places().front().aliases.empty()) << aliases;
    }
}

TEST(PlaceGazetteer, AFileOfAnotherShapeOrWithoutAPlaceGivesNone) {
    for (const auto* text : {"", "[]", "{}", R"({"places": {}})", R"({"places": [1]})",
                             R"({"places": []})", R"({"places": [{}]})", R"({"places": [)"}) {
        EXPECT_FALSE(PlaceGazetteer::fromJson(text)) << text;
    }
}

TEST(PlaceGazetteer, TheShippedPlacesResolveWhatPeopleType) {
    const auto gazetteer = PlaceGazetteer::bundled();
    ASSERT_TRUE(gazetteer);
    EXPECT_GE(gazetteer->places().size(), 2500u);
    for (const auto* typed : {"Kerala", "Ladakh", "Bangalore"}) {
        EXPECT_TRUE(gazetteer->match(typed)) << typed;
    }
}

}  // namespace ornivo
