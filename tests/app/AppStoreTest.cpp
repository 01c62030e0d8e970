#include "app/AppStore.h"

#include <gtest/gtest.h>

#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;

TEST(AppStore, AtLaunchHoldsNothingButTheDefaults) {
    StoreScene scene;
    AppStore& store = scene.store();
    EXPECT_EQ(store.source(), std::nullopt);
    EXPECT_EQ(store.sink(), std::nullopt);
    EXPECT_EQ(store.scan(), std::nullopt);
    EXPECT_EQ(store.locationSurvey(), std::nullopt);
    EXPECT_EQ(store.spaceEstimate(), std::nullopt);
    EXPECT_EQ(store.progress(), std::nullopt);
    EXPECT_EQ(store.latestPrediction(), std::nullopt);
    EXPECT_EQ(store.sortResult(), std::nullopt);
    EXPECT_EQ(store.findResult(), std::nullopt);
    EXPECT_EQ(store.pausedAtIndex(), std::nullopt);
    EXPECT_EQ(store.pausedRun(), std::nullopt);
    EXPECT_FALSE(store.scanning());
    EXPECT_TRUE(store.scanRefusal().isEmpty());
    EXPECT_TRUE(store.identificationNotice().isEmpty());
    EXPECT_TRUE(store.speciesQuery().isEmpty());
    EXPECT_TRUE(store.selectedSpeciesList().empty());
    EXPECT_EQ(store.appMode(), AppMode::sort);
    EXPECT_EQ(store.jobState(), JobState::idle);
    EXPECT_FALSE(store.showingSettings());
    EXPECT_FALSE(store.pickingSource());
    EXPECT_FALSE(store.pickingSink());
    EXPECT_TRUE(store.assumedRegionID().isEmpty());
    EXPECT_EQ(store.scannedBytes(), 0);
    EXPECT_EQ(store.options(),
              (SortOptions{CopyMode::keep, false, false, 38, std::nullopt, BurstInheritance::off}));
    EXPECT_FALSE(store.foldersReady());
    EXPECT_FALSE(store.shouldOfferRegion());
}

TEST(AppStore, ThePrimaryButtonSaysWhatItDoes) {
    StoreScene scene;
    EXPECT_EQ(scene.store().ctaLabel(), "Sort Photos");
}

TEST(AppStore, TellsTheVersion) {
    EXPECT_EQ(AppStore::version(), "0.1.0");
}

TEST(AppStore, AbsentValuesAreUndefinedInQml) {
    StoreScene scene;
    for (const char* name :
         {"locationSurvey", "scan", "spaceEstimate", "progress", "latestPrediction", "sortResult",
          "findResult", "pausedAtIndex", "pausedRun"}) {
        EXPECT_FALSE(scene.store().property(name).isValid()) << name;
    }
    EXPECT_EQ(scene.store().property("source").toUrl(), QUrl());
    EXPECT_EQ(scene.store().property("sink").toUrl(), QUrl());
}

struct Gate {
    int position;
    double gate;
};

class AppStoreGate : public ::testing::TestWithParam<Gate> {};

TEST_P(AppStoreGate, FollowsTheSlider) {
    StoreScene scene;
    scene.store().setConfidence(GetParam().position);
    EXPECT_NEAR(scene.store().gate(), GetParam().gate, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Positions, AppStoreGate,
                         ::testing::Values(Gate{-5, 0.3}, Gate{0, 0.3}, Gate{24, 0.45},
                                           Gate{38, 0.5375}, Gate{48, 0.6}, Gate{80, 0.8},
                                           Gate{90, 0.875}, Gate{100, 0.95}, Gate{120, 0.95}));

TEST(AppStore, AChangeOfModeClearsTheResultsAndNothingElse) {
    StoreScene scene;
    scene.pictures(1);
    scene.chooseFolders();
    scene.runToItsEnd();
    AppStore& store = scene.store();
    ASSERT_TRUE(store.sortResult());
    const auto scan = store.scan();
    store.setMode(AppStore::Mode::Find);
    EXPECT_EQ(store.appMode(), AppMode::find);
    EXPECT_EQ(store.sortResult(), std::nullopt);
    EXPECT_EQ(store.scan(), scan);
    EXPECT_TRUE(store.latestPrediction());
    EXPECT_TRUE(store.source() && store.sink());
}

TEST(AppStore, AChangeOfModeClearsWhatASearchFound) {
    StoreScene scene;
    scene.pictures(1);
    scene.chooseFolders();
    scene.store().setMode(AppStore::Mode::Find);
    scene.store().addSpecies(QStringLiteral("Osprey"), {});
    scene.runToItsEnd();
    ASSERT_TRUE(scene.store().findResult());
    scene.store().setMode(AppStore::Mode::Sort);
    EXPECT_EQ(scene.store().findResult(), std::nullopt);
}

TEST(AppStore, PressingTheModeThatIsSelectedClearsTheResultToo) {
    StoreScene scene;
    scene.pictures(1);
    scene.chooseFolders();
    scene.runToItsEnd();
    scene.store().setMode(AppStore::Mode::Sort);
    EXPECT_EQ(scene.store().sortResult(), std::nullopt);
}

TEST(AppStore, OptionsAreSetOneByOne) {
    StoreScene scene;
    AppStore& store = scene.store();
    const Count changes(&store, &AppStore::optionsChanged);
    store.setOriginals(AppStore::Originals::Trash);
    store.setRename(true);
    store.setDateSubfolders(true);
    store.setConfidence(24);
    EXPECT_EQ(store.options(), (SortOptions{CopyMode::trashOriginal, true, true, 24, std::nullopt,
                                            BurstInheritance::off}));
    EXPECT_EQ(changes.times(), 4);
}

struct Readiness {
    std::string description;
    int files;
    bool hasSource;
    bool hasSink;
    AppStore::Mode mode;
    bool hasSpecies;
    bool isReady;
};

class AppStoreReadiness : public ::testing::TestWithParam<Readiness> {};

TEST_P(AppStoreReadiness, DependsOnFoldersAndOnWhatIsSought) {
    StoreScene scene;
    scene.pictures(GetParam().files);
    std::filesystem::create_directories(scene.source());
    AppStore& store = scene.store();
    if (GetParam().hasSource) store.setSource(scene.source());
    if (GetParam().hasSink) store.setSink(scene.sink());
    store.setMode(GetParam().mode);
    if (GetParam().hasSpecies) store.addSpecies(QStringLiteral("Osprey"), {});
    if (GetParam().hasSource) {
        ASSERT_TRUE(scene.waitForScan());
    }
    EXPECT_EQ(store.foldersReady(), GetParam().isReady);
}

constexpr auto sorting = AppStore::Mode::Sort;
constexpr auto finding = AppStore::Mode::Find;
INSTANTIATE_TEST_SUITE_P(
    Cases, AppStoreReadiness,
    ::testing::Values(Readiness{"Nothing", 1, false, false, sorting, false, false},
                      Readiness{"OnlyASource", 1, true, false, sorting, false, false},
                      Readiness{"OnlyADestination", 1, false, true, sorting, false, false},
                      Readiness{"NoFiles", 0, true, true, sorting, false, false},
                      Readiness{"Both", 1, true, true, sorting, false, true},
                      Readiness{"ASearchForNothing", 1, true, true, finding, false, false},
                      Readiness{"ASearch", 1, true, true, finding, true, true},
                      Readiness{"ASearchInNoFiles", 0, true, true, finding, true, false},
                      Readiness{"ASearchForNowhere", 1, true, false, finding, true, false},
                      Readiness{"SpeciesThatSortingLeavesOut", 1, true, true, sorting, true, true}),
    [](const auto& row) { return row.param.description; });

struct Offer {
    std::string description;
    std::optional<PhotoLocationSurvey> survey;
    QString region;
    bool isMade;
};

class AppStoreRegionOffer : public ::testing::TestWithParam<Offer> {};

TEST_P(AppStoreRegionOffer, DependsOnTheSurveyAndTheRegionNamed) {
    StoreScene scene;
    scene.services.survey = [](const auto&) { return *GetParam().survey; };
    AppStore& store = scene.store();
    store.setAssumedRegionID(GetParam().region);
    if (GetParam().survey) {
        store.setSource(scene.source());
        ASSERT_TRUE(scene.waitForScan());
    }
    EXPECT_EQ(store.shouldOfferRegion(), GetParam().isMade);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, AppStoreRegionOffer,
    ::testing::Values(Offer{"NoSurvey", std::nullopt, {}, false},
                      Offer{"NothingLookedAt", PhotoLocationSurvey(0, 0), {}, false},
                      Offer{"NoneWithAPosition", PhotoLocationSurvey(2, 0), {}, true},
                      Offer{"OneWithAPosition", PhotoLocationSurvey(2, 1), {}, false},
                      Offer{"ARegionNamed", PhotoLocationSurvey(2, 0), QStringLiteral("anything"),
                            false}),
    [](const auto& row) { return row.param.description; });

TEST(AppStore, TheRegionIsOfferedOnceNoPhotographHasAPosition) {
    StoreScene scene;
    scene.pictures(2);
    EXPECT_FALSE(scene.store().shouldOfferRegion());
    scene.chooseFolders();
    EXPECT_TRUE(scene.store().shouldOfferRegion());
    scene.store().setAssumedRegionID(QStringLiteral("anything"));
    EXPECT_FALSE(scene.store().shouldOfferRegion());
}

TEST(AppStore, TheRegionIsNotOfferedIfOnePhotographHasAPosition) {
    StoreScene scene;
    scene.pictures(2);
    scene.run.picture("b.jpg", robin, 0.9, {.position = std::pair(51.5, -0.1)});
    scene.chooseFolders();
    EXPECT_EQ(scene.store().locationSurvey(), PhotoLocationSurvey(3, 1, 3));
    EXPECT_FALSE(scene.store().shouldOfferRegion());
}

TEST(AppStore, TheRegionIsNotOfferedForAnEmptyFolder) {
    StoreScene scene;
    scene.chooseFolders();
    EXPECT_FALSE(scene.store().shouldOfferRegion());
}

TEST(AppStore, EachFlagOfTheScreensTellsOfItsChanges) {
    StoreScene scene;
    AppStore& store = scene.store();
    const Count settings(&store, &AppStore::showingSettingsChanged);
    const Count source(&store, &AppStore::pickingSourceChanged);
    const Count sink(&store, &AppStore::pickingSinkChanged);
    for (int i = 0; i < 2; ++i) {
        store.setShowingSettings(true);
        store.setPickingSource(true);
        store.setPickingSink(true);
    }
    EXPECT_TRUE(store.showingSettings() && store.pickingSource() && store.pickingSink());
    EXPECT_EQ(settings.times(), 1);
    EXPECT_EQ(source.times(), 1);
    EXPECT_EQ(sink.times(), 1);
}

}  // namespace
}  // namespace ornivo::app
