#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <exception>
#include <thread>

#include "app/FolderUrl.h"
#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
using Operation = FailingFiles::Operation;
using Names = std::set<std::string>;

/// A run whose file with this name is held up until `letGo`.
class HeldRun : public ::testing::Test {
protected:
    void startHeldAt(const std::string& name, int files = 3) {
        scene_.pictures(files);
        scene_.run.files().onAttempt([this, name](const FailingFiles::Attempt& attempt) {
            if (attempt.operation != Operation::copy || attempt.path.filename() != name) return;
            isHeld_ = true;
            mayGo_.wait(false);
        });
        scene_.chooseFolders();
        store().tapPrimaryCTA();
        ASSERT_TRUE(waitUntil([this] { return isHeld_.load(); }));
    }
    void letGo() {
        mayGo_ = true;
        mayGo_.notify_all();
    }
    void TearDown() override { letGo(); }

    AppStore& store() { return scene_.store(); }

    std::atomic<bool> isHeld_ = false;
    std::atomic<bool> mayGo_ = false;
    StoreScene scene_;
};

TEST(AppStoreRun, GoesToItsEnd) {
    StoreScene scene;
    scene.run.picture("a.jpg", baldEagle, 0.9);
    scene.run.picture("b.jpg", robin, 0.4);
    scene.chooseFolders();
    AppStore& store = scene.store();
    store.tapPrimaryCTA();
    EXPECT_EQ(store.jobState(), JobState::running);
    EXPECT_EQ(store.progress(), (ProgressUpdate{0, 2, "", {}, 0}));
    EXPECT_FALSE(store.foldersReady());

    ASSERT_TRUE(scene.waitForEnd());
    EXPECT_EQ(store.progress(), std::nullopt);
    ASSERT_TRUE(store.sortResult());
    EXPECT_EQ(store.sortResult()->sorted, 1);
    EXPECT_EQ(store.sortResult()->unidentified, 1);
    EXPECT_EQ(store.sortResult()->stopReason, StopReason::completed());
    EXPECT_EQ(store.findResult(), std::nullopt);
    EXPECT_EQ(store.latestPrediction()->topLabel(), robin.label);
    EXPECT_EQ(store.identificationNotice(), "Low confidence — review _Uncertain/");
    EXPECT_TRUE(scene.run.filed().contains("Bald Eagle/a.jpg"));
    EXPECT_TRUE(scene.run.filed().contains("_Uncertain/b.jpg"));
    EXPECT_TRUE(store.foldersReady());
}

TEST(AppStoreRun, AShotThatFailsLeavesItsWordsAndNoSpecies) {
    StoreScene scene;
    scene.run.failingPicture("a.jpg", std::make_exception_ptr(std::runtime_error("Too dark.")));
    scene.chooseFolders();
    scene.runToItsEnd();
    EXPECT_EQ(scene.store().latestPrediction(), std::nullopt);
    EXPECT_EQ(scene.store().identificationNotice(), "Too dark.");
    EXPECT_EQ(scene.store().sortResult()->errors, 1);
}

TEST(AppStoreRun, EveryEventIsAppliedInItsOrder) {
    StoreScene scene;
    scene.pictures(40);
    scene.chooseFolders();
    AppStore& store = scene.store();
    std::vector<int> seen;
    QObject::connect(&store, &AppStore::progressChanged, [&] {
        if (store.progress()) seen.push_back(store.progress()->current);
    });
    scene.runToItsEnd();
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_EQ(store.sortResult()->processed, 40);
    EXPECT_EQ(store.sortResult()->perSpecies, (std::map<std::string, int>{{robin.name, 40}}));
    EXPECT_EQ(scene.run.filed().size(), 40U);
}

TEST_F(HeldRun, ASecondPressOfThePrimaryButtonDoesNothing) {
    startHeldAt("a1.jpg");
    const Count changes(&store(), &AppStore::jobStateChanged);
    store().tapPrimaryCTA();
    EXPECT_EQ(changes.times(), 0);
    letGo();
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_EQ(store().sortResult()->processed, 3);
    EXPECT_EQ(scene_.run.filed().size(), 3U);
}

TEST_F(HeldRun, PausesFinishesTheFileInHandAndGoesOn) {
    startHeldAt("a0.jpg");
    store().pause();
    EXPECT_EQ(store().jobState(), JobState::paused);
    letGo();
    ASSERT_TRUE(waitUntil([&] { return scene_.run.filed().contains("European Robin/a0.jpg"); }));
    EXPECT_FALSE(scene_.run.filed().contains("European Robin/a1.jpg"));
    EXPECT_EQ(store().jobState(), JobState::paused);
    store().resume();
    EXPECT_EQ(store().jobState(), JobState::running);
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_EQ(scene_.run.filed().size(), 3U);
    EXPECT_EQ(store().sortResult()->stopReason, StopReason::completed());
}

TEST_F(HeldRun, StopEndsItAtTheNextFile) {
    startHeldAt("a0.jpg");
    store().stop();
    EXPECT_EQ(store().jobState(), JobState::running);
    letGo();
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_EQ(store().sortResult()->stopReason, StopReason::userCancelled());
    EXPECT_EQ(store().sortResult()->processed, 1);
    EXPECT_EQ(scene_.run.filed(), Names{"European Robin/a0.jpg"});
    EXPECT_EQ(store().pausedRun(), std::nullopt);
}

TEST_F(HeldRun, StopEndsAPausedRun) {
    startHeldAt("a0.jpg");
    store().pause();
    letGo();
    store().stop();
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_EQ(store().sortResult()->stopReason, StopReason::userCancelled());
}

TEST_F(HeldRun, ClosingTheProgramFinishesTheFileInHand) {
    startHeldAt("a1.jpg");
    std::jthread later([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        letGo();
    });
    store().close();
    // Hidden names, as of a file half written, would be among these.
    EXPECT_EQ(scene_.run.filed(), (Names{"European Robin/a0.jpg", "European Robin/a1.jpg"}));
    for (const auto& photograph : scene_.run.input.paths) {
        EXPECT_TRUE(std::filesystem::exists(photograph)) << photograph;
    }
}

TEST_F(HeldRun, TheFoldersStayAsTheyAre) {
    const auto other = scene_.source() / "other";
    std::filesystem::create_directories(other);
    store().recentFolders()->add(other, RecentFoldersStore::Kind::source);
    store().recentFolders()->add(other, RecentFoldersStore::Kind::destination);
    startHeldAt("a0.jpg");
    const auto scan = store().scan();
    for (const auto isPaused : {false, true}) {
        if (isPaused) store().pause();
        store().chooseSource(urlOf(other));
        store().chooseSink(urlOf(other));
        store().chooseRecentSource(1);
        store().chooseRecentSink(1);
        store().takeDropped({urlOf(other), urlOf(other)});
        store().open({other, other});
        EXPECT_EQ(store().source(), scene_.source());
        EXPECT_EQ(store().sink(), scene_.sink());
        EXPECT_EQ(store().scan(), scan);
        EXPECT_FALSE(store().scanning());
    }
    store().resume();
    letGo();
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_EQ(store().sortResult()->sorted, 3);
}

TEST_F(HeldRun, OptionsChangedMeanwhileReachOnlyTheNextRun) {
    startHeldAt("a0.jpg");
    store().setRename(true);
    letGo();
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_TRUE(scene_.run.filed().contains("European Robin/a1.jpg"));
    scene_.runToItsEnd();
    EXPECT_TRUE(scene_.run.filed().contains("European Robin/European_Robin_001.jpg"));
}

TEST(AppStoreRun, WithNoRunTheControlsDoNothing) {
    StoreScene scene;
    scene.store().pause();
    scene.store().resume();
    scene.store().stop();
    EXPECT_EQ(scene.store().jobState(), JobState::idle);
    scene.pictures(1);
    scene.chooseFolders();
    scene.runToItsEnd();
    EXPECT_EQ(scene.store().sortResult()->sorted, 1);
}

TEST(AppStoreRun, ANewRunClearsTheLastOnesResult) {
    StoreScene scene;
    scene.pictures(1);
    scene.chooseFolders();
    scene.runToItsEnd();
    scene.store().tapPrimaryCTA();
    EXPECT_EQ(scene.store().sortResult(), std::nullopt);
    EXPECT_EQ(scene.store().latestPrediction(), std::nullopt);
    EXPECT_TRUE(scene.waitForEnd());
}

TEST(AppStoreRun, ANewSearchClearsTheLastOnesResult) {
    StoreScene scene;
    scene.pictures(1);
    scene.chooseFolders();
    scene.store().setMode(AppStore::Mode::Find);
    scene.store().addSpecies(QStringLiteral("Osprey"), {});
    scene.runToItsEnd();
    ASSERT_TRUE(scene.store().findResult());
    scene.store().tapPrimaryCTA();
    EXPECT_EQ(scene.store().findResult(), std::nullopt);
    EXPECT_TRUE(scene.waitForEnd());
}

TEST(AppStoreRun, TheForecastIsMadeAnewAtItsEnd) {
    StoreScene scene;
    scene.pictures(1);
    int forecasts = 0;
    scene.services.estimate = [&](auto, const auto&, const auto&) {
        ++forecasts;
        return SpaceEstimate();
    };
    scene.chooseFolders();
    ASSERT_EQ(forecasts, 1);
    scene.runToItsEnd();
    EXPECT_EQ(forecasts, 2);
}

TEST(AppStoreRun, FindWaitsForASpeciesAndCopiesItsMatches) {
    StoreScene scene;
    scene.run.picture("a.jpg", baldEagle, 0.9);
    scene.run.picture("b.jpg", robin, 0.9);
    scene.chooseFolders();
    AppStore& store = scene.store();
    store.setMode(AppStore::Mode::Find);
    EXPECT_FALSE(store.foldersReady());
    store.tapPrimaryCTA();
    EXPECT_EQ(store.jobState(), JobState::idle);
    store.addSpecies(QStringLiteral("Bald Eagle"), {});
    EXPECT_TRUE(store.foldersReady());
    scene.runToItsEnd();
    EXPECT_EQ(store.sortResult(), std::nullopt);
    ASSERT_TRUE(store.findResult());
    EXPECT_EQ(store.findResult()->matched, 1);
    EXPECT_EQ(scene.run.filed(), Names{"Bald Eagle/a.jpg"});
}

TEST(AppStoreRun, InSortModeTheTargetsOfFindAreLeftOut) {
    StoreScene scene;
    scene.pictures(1);
    scene.chooseFolders();
    scene.store().addSpecies(QStringLiteral("Bald Eagle"), {});
    scene.runToItsEnd();
    EXPECT_EQ(scene.run.filed(), Names{"European Robin/a0.jpg"});
}

TEST(AppStoreRun, ASearchForTargetsNobodyKnowsFindsNothing) {
    StoreScene scene;
    scene.pictures(2);
    scene.chooseFolders();
    AppStore& store = scene.store();
    store.setMode(AppStore::Mode::Find);
    store.addSpecies(QStringLiteral("Dodo"), {});
    ASSERT_EQ(store.unrecognisedTargets().size(), 1U);
    EXPECT_TRUE(store.foldersReady());
    scene.runToItsEnd();
    EXPECT_EQ(store.findResult()->matched, 0);
    EXPECT_EQ(store.findResult()->scanned, 2);
}

}  // namespace
}  // namespace ornivo::app
