#include "app/presentation/RegionModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include "app/AppStore.h"

namespace ornivo::app {
namespace {

RangeTable::RegionInfo region(const char* id, const char* name,
                              std::vector<std::string> countries) {
    RangeTable::RegionInfo info;
    info.id = id;
    info.name = name;
    info.countries = std::move(countries);
    return info;
}

const std::vector<RangeTable::RegionInfo> regions{
    region("kerala", "Kerala", {"India"}),
    region("alps", "Alps", {"France", "Italy", "Austria"}),
    region("oland", "Öland", {}),
    region("kenya", "Kenya", {"Kenya"}),
};

QString text(const RegionModel& model, int row, RegionModel::Role role) {
    return model.data(model.index(row), role).toString();
}

}  // namespace

TEST(RegionModel, TheFirstRowNamesNoRegion) {
    const RegionModel model(regions);
    EXPECT_EQ(text(model, 0, RegionModel::RegionID), "");
    EXPECT_EQ(text(model, 0, RegionModel::Label), "Use each photo's own location");
    EXPECT_EQ(text(model, 0, RegionModel::Hint), "");
    EXPECT_EQ(model.idAt(0), "");
}

TEST(RegionModel, TheRegionsFollowInTheOrderOfTheTable) {
    RegionModel model(regions);
    const QAbstractItemModelTester tester(&model);
    ASSERT_EQ(model.rowCount(), 5);
    EXPECT_EQ(text(model, 1, RegionModel::Label), "Kerala");
    EXPECT_EQ(text(model, 1, RegionModel::Hint), "India");
    EXPECT_EQ(text(model, 2, RegionModel::Hint), "France, Italy, Austria");
    EXPECT_EQ(text(model, 3, RegionModel::Hint), "");
    EXPECT_EQ(model.idAt(4), "kenya");
}

TEST(RegionModel, ARegionIsFoundByItsId) {
    const RegionModel model(regions);
    EXPECT_EQ(model.rowOf(""), 0);
    EXPECT_EQ(model.rowOf("alps"), 2);
    EXPECT_EQ(model.rowOf("of an older table"), -1);
}

TEST(RegionModel, ARegionIsFoundByHowItsNameBegins) {
    const RegionModel model(regions);
    EXPECT_EQ(model.rowBeginningWith("ke", 0), 1);
    EXPECT_EQ(model.rowBeginningWith("K", 2), 4);
    EXPECT_EQ(model.rowBeginningWith("k", 5), 1);
    EXPECT_EQ(model.rowBeginningWith("ol", -1), 3);
    EXPECT_EQ(model.rowBeginningWith("z", 0), -1);
}

TEST(RegionModel, TheRegionsThatShipWithTheProgramAreAllThere) {
    const RegionModel model;
    ASSERT_TRUE(AppStore::rangeTable());
    EXPECT_EQ(model.rowCount(), static_cast<int>(AppStore::rangeTable()->regions().size()) + 1);
}

TEST(RegionModel, WithoutTheTableOnlyTheFirstRowIsThere) {
    EXPECT_EQ(RegionModel(std::vector<RangeTable::RegionInfo>()).rowCount(), 1);
}

}  // namespace ornivo::app
