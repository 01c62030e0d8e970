#include "engine/PausedRun.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>

#include "app/StoreScene.h"
#include "support/SmallDisk.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
namespace fs = std::filesystem;

/// A record in the destination as an earlier start of the program left it.
class ARecord : public ::testing::Test {
protected:
    void leave(PausedRun record) {
        ASSERT_TRUE(record.write(scene_.sink(), scene_.run.files()));
        record_ = std::move(record);
    }
    static PausedRun stoppedAt(int index) {
        PausedRun record;
        record.mode = "sort";
        record.copyMode = "keep";
        record.burstInheritance = "off";
        record.gate = 0.6;
        record.totalPhotos = 4;
        record.stoppedAtIndex = index;
        return record;
    }

    AppStore& store() { return scene_.store(); }

    StoreScene scene_;
    PausedRun record_;
};

TEST_F(ARecord, IsFoundWhenItsDestinationIsChosen) {
    leave(stoppedAt(2));
    scene_.pictures(1);
    store().setSource(scene_.source());
    ASSERT_TRUE(scene_.waitForScan());
    EXPECT_EQ(store().pausedRun(), std::nullopt);
    store().setSink(scene_.sink());
    EXPECT_EQ(store().pausedRun(), record_);
    store().setSink(scene_.source());
    EXPECT_EQ(store().pausedRun(), std::nullopt);
}

TEST_F(ARecord, ResumedWithNoSourceStaysWhereItIs) {
    leave(stoppedAt(2));
    store().setSink(scene_.sink());
    store().resumePausedRun();
    EXPECT_EQ(store().jobState(), JobState::idle);
    EXPECT_EQ(store().pausedRun(), record_);
    EXPECT_TRUE(fs::exists(PausedRun::manifestURL(scene_.sink())));
}

TEST_F(ARecord, GoesOnFromItsIndexAndIsGoneAtTheEnd) {
    leave(stoppedAt(2));
    scene_.pictures(4);
    scene_.chooseFolders();
    store().resumePausedRun();
    EXPECT_EQ(store().jobState(), JobState::running);
    EXPECT_EQ(store().progress(), (ProgressUpdate{2, 4, "", {}, 0}));
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_EQ(scene_.run.filed(),
              (std::set<std::string>{"European Robin/a2.jpg", "European Robin/a3.jpg"}));
    EXPECT_EQ(store().pausedRun(), std::nullopt);
}

TEST_F(ARecord, WhoseFileIsNotAmongThoseScannedStartsNothing) {
    scene_.pictures(3);
    for (const int index : {-1, 3, 4}) {
        leave(stoppedAt(index));
        scene_.chooseFolders();
        store().resumePausedRun();
        EXPECT_EQ(store().jobState(), JobState::idle) << index;
        EXPECT_EQ(store().pausedRun(), record_) << index;
        EXPECT_TRUE(fs::exists(PausedRun::manifestURL(scene_.sink()))) << index;
    }
}

TEST_F(ARecord, OfTheVeryStartStartsNothingWhereNoFileWasFound) {
    leave(stoppedAt(0));
    scene_.chooseFolders();
    store().resumePausedRun();
    EXPECT_EQ(store().jobState(), JobState::idle);
    EXPECT_EQ(store().pausedRun(), record_);
}

TEST_F(ARecord, OfTheLastFileGoesOnWithIt) {
    leave(stoppedAt(2));
    scene_.pictures(3);
    scene_.chooseFolders();
    store().resumePausedRun();
    EXPECT_EQ(store().jobState(), JobState::running);
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_EQ(scene_.run.filed(), std::set<std::string>{"European Robin/a2.jpg"});
    EXPECT_EQ(store().pausedRun(), std::nullopt);
}

TEST_F(ARecord, IsDiscardedForGood) {
    leave(stoppedAt(2));
    store().setSink(scene_.sink());
    store().discardPausedRun();
    EXPECT_EQ(store().pausedRun(), std::nullopt);
    EXPECT_FALSE(fs::exists(PausedRun::manifestURL(scene_.sink())));
    store().loadPausedRun();
    EXPECT_EQ(store().pausedRun(), std::nullopt);
}

TEST_F(ARecord, WithNoDestinationThereIsNothingToDiscardOrResume) {
    store().discardPausedRun();
    store().resumePausedRun();
    store().loadPausedRun();
    EXPECT_EQ(store().pausedRun(), std::nullopt);
    EXPECT_EQ(store().confidence(), 38);
}

TEST_F(ARecord, ThatIsBrokenCountsAsNone) {
    writeFile(PausedRun::manifestURL(scene_.sink()), "{\"version\": 1");
    store().setSink(scene_.sink());
    EXPECT_EQ(store().pausedRun(), std::nullopt);
}

struct Position {
    std::optional<std::string> callLevel;
    double gate;
    int slider;
};

class PausedRunPosition : public ARecord, public ::testing::WithParamInterface<Position> {};

TEST_P(PausedRunPosition, IsTakenOver) {
    PausedRun record = stoppedAt(0);
    record.callLevel = GetParam().callLevel;
    record.gate = GetParam().gate;
    leave(record);
    store().setSink(scene_.sink());
    store().setRename(true);
    store().resumePausedRun();
    EXPECT_EQ(store().confidence(), GetParam().slider);
    EXPECT_TRUE(store().rename());
}

INSTANTIATE_TEST_SUITE_P(
    Records, PausedRunPosition,
    ::testing::Values(Position{"confirmed", 0.3, 48}, Position{"probable", 0.3, 24},
                      Position{"possible", 0.9, 0}, Position{"certain", 0.6, 48},
                      Position{std::nullopt, 0.5375, 38}, Position{std::nullopt, 0.8, 80},
                      Position{std::nullopt, 2, 100}, Position{std::nullopt, 0, 0}));

/// A disk that has no room for the n-th copy, until it is freed.
class ADiskThatFills : public ::testing::Test {
protected:
    void fillAtCopy(int number) {
        scene_.run.files().fail(
            FailingFiles::Operation::copy,
            [this, number](const auto& attempt) { return isFull_ && attempt.number >= number; },
            noSpaceLeft());
    }

    AppStore& store() { return scene_.store(); }

    std::atomic<bool> isFull_ = true;
    StoreScene scene_;
};

TEST_F(ADiskThatFills, StopsASortThatGoesOnOnceThereIsRoom) {
    scene_.pictures(4);
    fillAtCopy(3);
    scene_.chooseFolders();
    scene_.runToItsEnd();
    EXPECT_EQ(store().sortResult()->stopReason, StopReason::diskFull());
    EXPECT_EQ(store().sortResult()->sorted, 2);
    EXPECT_EQ(store().pausedAtIndex(), 2);
    ASSERT_TRUE(store().pausedRun());
    EXPECT_EQ(store().pausedRun()->stoppedAtIndex, 2);

    isFull_ = false;
    store().resumePausedRun();
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_EQ(store().sortResult()->stopReason, StopReason::completed());
    EXPECT_EQ(store().sortResult()->sorted, 4);
    EXPECT_EQ(store().pausedAtIndex(), std::nullopt);
    EXPECT_EQ(store().pausedRun(), std::nullopt);
    EXPECT_EQ(scene_.run.filed(),
              (std::set<std::string>{"European Robin/a0.jpg", "European Robin/a1.jpg",
                                     "European Robin/a2.jpg", "European Robin/a3.jpg"}));
}

TEST_F(ADiskThatFills, StopsASearchThatGoesOnOnceThereIsRoom) {
    scene_.pictures(4);
    fillAtCopy(2);
    scene_.chooseFolders();
    store().setMode(AppStore::Mode::Find);
    store().addSpecies(QString::fromStdString(robin.name), {});
    scene_.runToItsEnd();
    EXPECT_EQ(store().findResult()->stopReason, StopReason::diskFull());
    EXPECT_EQ(store().pausedAtIndex(), 1);
    ASSERT_TRUE(store().pausedRun());
    EXPECT_EQ(store().pausedRun()->mode, "find");

    isFull_ = false;
    store().resumePausedRun();
    ASSERT_TRUE(scene_.waitForEnd());
    EXPECT_EQ(store().findResult()->stopReason, StopReason::completed());
    EXPECT_EQ(store().findResult()->matched, 4);
    EXPECT_EQ(store().pausedAtIndex(), std::nullopt);
    EXPECT_EQ(store().pausedRun(), std::nullopt);
}

TEST_F(ADiskThatFills, KeepsItsRecordWhenAnotherSourceIsChosen) {
    scene_.pictures(2);
    fillAtCopy(2);
    scene_.chooseFolders();
    scene_.runToItsEnd();
    const auto record = store().pausedRun();
    ASSERT_TRUE(record);
    store().setSource(scene_.sink());
    EXPECT_EQ(store().pausedRun(), record);
    EXPECT_EQ(store().pausedAtIndex(), 1);
    ASSERT_TRUE(scene_.waitForScan());
    EXPECT_EQ(store().pausedRun(), record);
    EXPECT_EQ(store().pausedAtIndex(), 1);
}

TEST(AppStoreOnAFullDisk, StopsWithARecordAndResumesWhenThereIsRoom) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    StoreScene scene(disk->path() / "sorted");
    writeFile(disk->path() / "ballast", std::string(600 << 10, 'x'));
    for (int i = 0; i < 8; ++i) {
        const auto path = scene.run.picture("a" + std::to_string(i) + ".jpg", robin, 0.9);
        std::ofstream(path, std::ios::app) << std::string(100 << 10, '\0');
    }
    scene.chooseFolders();
    AppStore& store = scene.store();
    EXPECT_EQ(store.spaceEstimate()->verdict, SpaceEstimate::Verdict::doesNotFit);
    scene.runToItsEnd();
    ASSERT_TRUE(store.pausedRun());
    const int stoppedAt = store.pausedRun()->stoppedAtIndex;
    EXPECT_EQ(store.pausedAtIndex(), stoppedAt);
    EXPECT_EQ(store.sortResult()->stopReason, StopReason::diskFull());
    EXPECT_EQ(store.sortResult()->sorted, stoppedAt);

    fs::remove(disk->path() / "ballast");
    store.resumePausedRun();
    EXPECT_TRUE(store.sortResult()) << "the old result stays until the new one is there";
    ASSERT_TRUE(scene.waitForEnd());
    EXPECT_EQ(store.pausedRun(), std::nullopt);
    EXPECT_EQ(store.pausedAtIndex(), std::nullopt);
    EXPECT_EQ(store.sortResult()->sorted, 8);
    EXPECT_EQ(store.sortResult()->stopReason, StopReason::completed());
}

}  // namespace
}  // namespace ornivo::app
