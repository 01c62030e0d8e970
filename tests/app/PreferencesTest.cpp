#include "app/Preferences.h"

#include <gtest/gtest.h>

#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;

const auto regionKey = QStringLiteral("assumedRegionID");
const auto burstKey = QStringLiteral("burstInheritance");

/// A region of the table that ships.
const RangeTable::RegionInfo& aRegion() {
    return AppStore::rangeTable()->regions().front();
}

TEST(Preferences, RegionAndBurstsSurviveARestart) {
    StoreScene scene;
    scene.store().setAssumedRegionID(QString::fromStdString(aRegion().id));
    scene.store().setBursts(AppStore::Bursts::ConfirmedOnly);
    scene.restart();
    EXPECT_EQ(scene.store().assumedRegionID().toStdString(), aRegion().id);
    EXPECT_EQ(scene.store().options().assumedLocation, aRegion().representativePoint());
    EXPECT_EQ(scene.store().options().burstInheritance, BurstInheritance::confirmedOnly);
    EXPECT_EQ(scene.preferences().value(burstKey).toString(), "confirmedOnly");
}

TEST(Preferences, NothingElseSurvivesARestart) {
    StoreScene scene;
    scene.pictures(1);
    scene.chooseFolders();
    AppStore& store = scene.store();
    store.setMode(AppStore::Mode::Find);
    store.setOriginals(AppStore::Originals::Trash);
    store.setRename(true);
    store.setDateSubfolders(true);
    store.setConfidence(80);
    store.addSpecies(QStringLiteral("Osprey"), {});
    scene.restart();
    EXPECT_EQ(scene.store().source(), std::nullopt);
    EXPECT_EQ(scene.store().sink(), std::nullopt);
    EXPECT_EQ(scene.store().appMode(), AppMode::sort);
    EXPECT_EQ(scene.store().options(),
              (SortOptions{CopyMode::keep, false, false, 38, std::nullopt, BurstInheritance::off}));
    EXPECT_TRUE(scene.store().selectedSpeciesList().empty());
    EXPECT_EQ(scene.store().recentFolders()->sourceFolders(), std::vector{scene.source()});
    EXPECT_EQ(scene.store().recentFolders()->destinationFolders(), std::vector{scene.sink()});
    const QStringList keys = scene.preferences().allKeys();
    EXPECT_EQ(QSet(keys.begin(), keys.end()),
              (QSet<QString>{QStringLiteral("recentSourceBookmarks"),
                             QStringLiteral("recentDestBookmarks")}));
}

TEST(Preferences, NoRegionRemovesTheKey) {
    StoreScene scene;
    scene.store().setAssumedRegionID(QString::fromStdString(aRegion().id));
    ASSERT_TRUE(scene.preferences().contains(regionKey));
    scene.store().setAssumedRegionID({});
    EXPECT_FALSE(scene.preferences().contains(regionKey));
    EXPECT_EQ(scene.store().options().assumedLocation, std::nullopt);
}

TEST(Preferences, ARegionOfAnEarlierVersionGivesNoPlaceAndNoOffer) {
    StoreScene scene;
    scene.preferences().setValue(regionKey, QStringLiteral("atlantis"));
    scene.pictures(1);
    scene.chooseFolders();
    EXPECT_EQ(scene.store().assumedRegionID(), "atlantis");
    EXPECT_EQ(scene.store().options().assumedLocation, std::nullopt);
    EXPECT_FALSE(scene.store().shouldOfferRegion());
}

TEST(Preferences, BurstsThatCantBeReadAreOff) {
    StoreScene scene;
    for (const QVariant& value :
         {QVariant(QStringLiteral("sometimes")), QVariant(7), QVariant(QStringList{"off", "x"})}) {
        scene.preferences().setValue(burstKey, value);
        EXPECT_EQ(Preferences::burstInheritance(scene.preferences()), BurstInheritance::off);
    }
}

TEST(Preferences, EachBurstSettingIsKeptUnderItsRawValue) {
    StoreScene scene;
    for (const BurstInheritance each : allCases<BurstInheritance>()) {
        Preferences::setBurstInheritance(scene.preferences(), each);
        EXPECT_EQ(scene.preferences().value(burstKey).toString().toStdString(), rawValue(each));
        EXPECT_EQ(Preferences::burstInheritance(scene.preferences()), each);
    }
}

}  // namespace
}  // namespace ornivo::app
