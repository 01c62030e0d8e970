#include "cli/RegionsCommand.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/OwnBundle.h"
#include "cli/Program.h"
#include "cli/SortScene.h"
#include "identification/RangeTable.h"

namespace ornivo::cli {

using namespace ornivo::testing;

TEST(RegionsCommand, EveryRegionHasALineInTheOrderOfTheTable) {
    const auto table = RangeTable::loadBundled();
    const auto lines = linesOf(Program::run({"regions"}).out);
    ASSERT_EQ(lines.size(), table.regions().size());
    const auto& first = table.regions().front();
    EXPECT_EQ(lines.front(), first.id + "  " + first.name + "  " +
                                 std::to_string(table.labels(first.id).size()) + " species");
}

TEST(RegionsCommand, JsonTellsEverythingOfARegion) {
    const auto first = RangeTable::loadBundled().regions().front();
    const auto json = nlohmann::json::parse(linesOf(Program::run({"regions", "--json"}).out).at(0));
    EXPECT_EQ(json.at("id"), first.id);
    EXPECT_EQ(json.at("name"), first.name);
    EXPECT_EQ(json.at("latitudes").at(1), first.latitudes.max);
    EXPECT_EQ(json.at("longitudes").at(0), first.longitudes.min);
}

TEST(RegionsCommand, ABrokenTableIsToldInASentence) {
    const OwnBundle bundle;
    writeFile(bundle.file("range_regions.json"), "{");
    const Ending ending = Program::run({"regions"}, {}, bundle.program());
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.err,
              "There is no table of regions; every bird counts as possible everywhere.\n");
}

}  // namespace ornivo::cli
