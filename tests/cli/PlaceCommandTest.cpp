#include "cli/PlaceCommand.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/OwnBundle.h"
#include "cli/Program.h"
#include "cli/SortScene.h"

namespace ornivo::cli {

using namespace ornivo::testing;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(PlaceCommand, APlaceIsToldWithItsPointAndRegion) {
    const Ending ending = Program::run({"place", "Kerala"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_THAT(ending.out, StartsWith("✓ Kerala ("));
    EXPECT_THAT(ending.out, HasSubstr(") in "));
}

TEST(PlaceCommand, ATextThatMeansNoPlaceIsSaidSo) {
    const Ending ending = Program::run({"place", "Qqqxyz"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(linesOf(ending.out).at(0),
              "Couldn't place “Qqqxyz”. Try a state, country or major city.");
}

TEST(PlaceCommand, WithoutATableNoPlaceIsKnown) {
    const OwnBundle bundle;
    std::filesystem::remove(bundle.file("places.json"));
    const Ending ending = Program::run({"place", "Kerala"}, {}, bundle.program());
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.out, "Couldn't place “Kerala”. Try a state, country or major city.\n");
}

TEST(PlaceCommand, JsonHoldsTheMatchAndTheSuggestions) {
    const auto json = nlohmann::json::parse(Program::run({"place", "--json", "Bangalore"}).out);
    EXPECT_EQ(json.at("query"), "Bangalore");
    EXPECT_FALSE(json.at("match").at("regionID").get<std::string>().empty());
    EXPECT_FALSE(json.at("suggestions").empty());
}

}  // namespace ornivo::cli
