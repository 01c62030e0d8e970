#include <gtest/gtest.h>

#include <latch>
#include <stdexcept>

#include "app/FolderUrl.h"
#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
namespace fs = std::filesystem;

TEST(AppStoreFolders, ASourceIsScannedAndSurveyed) {
    StoreScene scene;
    scene.pictures(3);
    AppStore& store = scene.store();
    store.setSource(scene.source());
    EXPECT_EQ(store.source(), scene.source());
    EXPECT_TRUE(store.scanning());
    EXPECT_EQ(store.scan(), std::nullopt);
    ASSERT_TRUE(scene.waitForScan());
    EXPECT_FALSE(store.scanning());
    EXPECT_EQ(store.scan(), (ScanResult{3, scene.run.input.paths}));
    EXPECT_EQ(store.locationSurvey(), PhotoLocationSurvey(3, 0, 3));
    EXPECT_GT(store.scannedBytes(), 0);
    EXPECT_EQ(store.recentFolders()->sourceFolders(), std::vector{scene.source()});
    EXPECT_TRUE(store.recentFolders()->destinationFolders().empty());
}

TEST(AppStoreFolders, WithTheSourceFirstTheForecastComesWithTheDestination) {
    StoreScene scene;
    scene.pictures(1);
    scene.store().setSource(scene.source());
    ASSERT_TRUE(scene.waitForScan());
    EXPECT_EQ(scene.store().spaceEstimate(), std::nullopt);
    scene.store().setSink(scene.sink());
    ASSERT_TRUE(scene.store().spaceEstimate());
    EXPECT_EQ(scene.store().spaceEstimate()->photographBytes, scene.store().scannedBytes());
    EXPECT_TRUE(scene.store().foldersReady());
}

TEST(AppStoreFolders, WithTheDestinationFirstTheForecastComesWithTheScan) {
    StoreScene scene;
    scene.pictures(1);
    scene.store().setSink(scene.sink());
    EXPECT_EQ(scene.store().spaceEstimate(), std::nullopt);
    scene.store().setSource(scene.source());
    EXPECT_EQ(scene.store().spaceEstimate(), std::nullopt);
    ASSERT_TRUE(scene.waitForScan());
    EXPECT_TRUE(scene.store().spaceEstimate());
    EXPECT_TRUE(scene.store().foldersReady());
}

TEST(AppStoreFolders, AScanThatFindsNothingLeavesTheButtonOff) {
    StoreScene scene;
    scene.chooseFolders();
    EXPECT_EQ(scene.store().scan(), (ScanResult{0, {}}));
    EXPECT_FALSE(scene.store().foldersReady());
    EXPECT_EQ(scene.store().spaceEstimate(), std::nullopt);
    scene.store().tapPrimaryCTA();
    EXPECT_EQ(scene.store().jobState(), JobState::idle);
}

TEST(AppStoreFolders, ALibraryIsRefusedWithItsWordsAndNoForecast) {
    StoreScene scene;
    scene.run.picture("Trip.photoslibrary/originals/a.jpg", robin, 0.9);
    scene.store().setSink(scene.sink());
    scene.store().setSource(scene.source() / "Trip.photoslibrary");
    ASSERT_TRUE(scene.waitForScan());
    EXPECT_EQ(scene.store().scanRefusal().toStdString(),
              FileScanner::scan(scene.source() / "Trip.photoslibrary").refusalMessage());
    EXPECT_EQ(scene.store().spaceEstimate(), std::nullopt);
    EXPECT_FALSE(scene.store().foldersReady());
}

TEST(AppStoreFolders, ARefusalLeavesNoForecastWhateverItsFilesTakeUp) {
    for (const bool isSinkFirst : {true, false}) {
        StoreScene scene;
        scene.services.scan = [](const fs::path& folder) {
            FileScanner::Scan scan;
            scan.images = {folder / "a.jpg"};
            scan.totalBytes = 1000;
            scan.refusedLibrary = folder / "Trip.photoslibrary";
            return scan;
        };
        AppStore& store = scene.store();
        if (isSinkFirst) store.setSink(scene.sink());
        store.setSource(scene.source());
        ASSERT_TRUE(scene.waitForScan());
        if (!isSinkFirst) store.setSink(scene.sink());
        EXPECT_EQ(store.scannedBytes(), 1000);
        EXPECT_FALSE(store.scanRefusal().isEmpty());
        EXPECT_EQ(store.spaceEstimate(), std::nullopt);
    }
}

TEST(AppStoreFolders, ANewSourceTakesARefusalBackAtOnce) {
    StoreScene scene;
    scene.run.picture("Trip.photoslibrary/originals/a.jpg", robin, 0.9);
    AppStore& store = scene.store();
    store.setSource(scene.source() / "Trip.photoslibrary");
    ASSERT_TRUE(scene.waitForScan());
    ASSERT_FALSE(store.scanRefusal().isEmpty());
    const Count changes(&store, &AppStore::scanRefusalChanged);
    store.setSource(scene.source());
    EXPECT_TRUE(store.scanRefusal().isEmpty());
    EXPECT_EQ(changes.times(), 1);
}

TEST(AppStoreFolders, ANewSourceClearsWhatASearchFound) {
    StoreScene scene;
    scene.pictures(1);
    scene.chooseFolders();
    scene.store().setMode(AppStore::Mode::Find);
    scene.store().addSpecies(QStringLiteral("Osprey"), {});
    scene.runToItsEnd();
    ASSERT_TRUE(scene.store().findResult());
    scene.store().setSource(scene.source());
    EXPECT_EQ(scene.store().findResult(), std::nullopt);
}

TEST(AppStoreFolders, ANewSourceClearsWhatWasFoundInTheOldOne) {
    StoreScene scene;
    scene.pictures(1);
    scene.chooseFolders();
    scene.store().setConfidence(48);
    scene.store().addSpecies(QStringLiteral("Osprey"), {});
    scene.runToItsEnd();
    AppStore& store = scene.store();
    ASSERT_TRUE(store.sortResult() && store.latestPrediction());

    store.setSource(scene.source());
    EXPECT_EQ(store.scan(), std::nullopt);
    EXPECT_EQ(store.sortResult(), std::nullopt);
    EXPECT_EQ(store.locationSurvey(), std::nullopt);
    EXPECT_EQ(store.latestPrediction(), std::nullopt);
    EXPECT_TRUE(store.identificationNotice().isEmpty());
    EXPECT_EQ(store.spaceEstimate(), std::nullopt);
    EXPECT_FALSE(store.foldersReady());
    EXPECT_EQ(store.sink(), scene.sink());
    EXPECT_EQ(store.confidence(), 48);
    EXPECT_EQ(store.selectedSpeciesList().size(), 1U);
    EXPECT_TRUE(scene.waitForScan());
}

TEST(AppStoreFolders, OfTwoScansTheOneThatEndsLastStands) {
    StoreScene scene;
    std::latch mayEnd(1);
    scene.services.scan = [&](const fs::path& folder) {
        FileScanner::Scan scan;
        scan.images = {folder / "a.jpg"};
        if (folder == "/slow") mayEnd.wait();
        return scan;
    };
    AppStore& store = scene.store();
    store.setSource("/slow");
    store.setSource("/quick");
    ASSERT_TRUE(waitUntil([&] { return store.scan().has_value(); }));
    EXPECT_EQ(store.scan()->paths, std::vector<fs::path>{"/quick/a.jpg"});
    EXPECT_FALSE(store.scanning());
    mayEnd.count_down();
    ASSERT_TRUE(waitUntil([&] { return store.scan()->paths.front() == "/slow/a.jpg"; }));
    EXPECT_EQ(store.source(), fs::path("/quick"));
}

TEST(AppStoreFolders, TheSurveyHoldsUpNothing) {
    StoreScene scene;
    scene.pictures(1);
    std::latch mayEnd(1);
    scene.services.survey = [&](const auto&) {
        mayEnd.wait();
        return PhotoLocationSurvey(1, 0);
    };
    AppStore& store = scene.store();
    store.setSink(scene.sink());
    store.setSource(scene.source());
    ASSERT_TRUE(waitUntil([&] { return store.foldersReady(); }));
    scene.runToItsEnd();
    EXPECT_EQ(store.sortResult()->sorted, 1);
    EXPECT_EQ(store.locationSurvey(), std::nullopt);
    mayEnd.count_down();
    EXPECT_TRUE(waitUntil([&] { return store.locationSurvey().has_value(); }));
}

TEST(AppStoreFolders, SourceAndDestinationMayBeTheSameFolder) {
    StoreScene scene;
    scene.pictures(1);
    scene.store().setSource(scene.source());
    scene.store().setSink(scene.source());
    ASSERT_TRUE(scene.waitForScan());
    EXPECT_TRUE(scene.store().foldersReady());
}

TEST(AppStoreFolders, FoldersChosenInQmlComeAsUrls) {
    StoreScene scene;
    const fs::path odd = scene.source() / "M\xFCnchen, 100% \xC3\xA9";
    fs::create_directories(odd);
    scene.store().chooseSource(urlOf(odd));
    scene.store().chooseSink(QUrl(QStringLiteral("https://example.org/")));
    EXPECT_EQ(scene.store().source(), odd);
    EXPECT_EQ(scene.store().sink(), std::nullopt);
    EXPECT_EQ(scene.store().property("source").toUrl(), urlOf(odd));
}

TEST(AppStoreFolders, RecentFoldersAreChosenByTheirPlaceInTheList) {
    StoreScene scene;
    for (const char* name : {"one", "two"}) {
        fs::create_directories(scene.source() / name);
        scene.store().setSource(scene.source() / name);
        scene.store().setSink(scene.source() / name);
    }
    scene.store().chooseRecentSource(1);
    scene.store().chooseRecentSink(1);
    EXPECT_EQ(scene.store().source(), scene.source() / "one");
    EXPECT_EQ(scene.store().sink(), scene.source() / "one");
    for (const int beyond : {-1, 2}) {
        scene.store().chooseRecentSource(beyond);
        scene.store().chooseRecentSink(beyond);
    }
    EXPECT_EQ(scene.store().source(), scene.source() / "one");
}

class DroppedFolders : public ::testing::Test {
protected:
    fs::path folder(const std::string& name) {
        fs::create_directories(scene_.source() / name);
        return scene_.source() / name;
    }
    void drop(const std::vector<fs::path>& paths) {
        QList<QUrl> urls;
        for (const fs::path& path : paths) urls.append(urlOf(path));
        scene_.store().takeDropped(urls);
    }

    StoreScene scene_;
};

TEST_F(DroppedFolders, FillWhatIsMissingSourceFirst) {
    drop({folder("a")});
    EXPECT_EQ(scene_.store().source(), folder("a"));
    EXPECT_EQ(scene_.store().sink(), std::nullopt);
    drop({folder("b")});
    EXPECT_EQ(scene_.store().source(), folder("a"));
    EXPECT_EQ(scene_.store().sink(), folder("b"));
    drop({folder("c")});
    EXPECT_EQ(scene_.store().source(), folder("c"));
    EXPECT_EQ(scene_.store().sink(), folder("b"));
}

TEST_F(DroppedFolders, TwoAreSourceAndDestination) {
    drop({folder("a"), folder("b")});
    EXPECT_EQ(scene_.store().source(), folder("a"));
    EXPECT_EQ(scene_.store().sink(), folder("b"));
}

TEST_F(DroppedFolders, FilesAndWebPagesAreIgnored) {
    drop({writeFile(scene_.source() / "a.jpg", "x"), scene_.source() / "missing"});
    scene_.store().takeDropped({QUrl(QStringLiteral("https://example.org/folder"))});
    EXPECT_EQ(scene_.store().source(), std::nullopt);
}

TEST_F(DroppedFolders, DuringARunNothingIsTaken) {
    scene_.pictures(2);
    scene_.chooseFolders();
    scene_.store().tapPrimaryCTA();
    drop({folder("a"), folder("b")});
    EXPECT_EQ(scene_.store().source(), scene_.source());
    EXPECT_EQ(scene_.store().sink(), scene_.sink());
    EXPECT_TRUE(scene_.waitForEnd());
}

}  // namespace
}  // namespace ornivo::app
