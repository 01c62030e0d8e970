#include <gtest/gtest.h>

#include "app/ScreenScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
namespace fs = std::filesystem;

class PausedRunCard : public ::testing::Test {
protected:
    static PausedRun stoppedRun() {
        PausedRun record;
        record.sourcePaths = {"/media/card/DCIM/a.jpg", "/media/card/DCIM/b.jpg"};
        record.destination = "/media/nas/Birds";
        record.mode = "sort";
        record.copyMode = "keep";
        record.burstInheritance = "off";
        record.gate = 0.5375;
        record.totalPhotos = 4;
        record.stoppedAtIndex = 1;
        record.sortedSoFar = 1;
        return record;
    }
    void leave(const PausedRun& record) {
        fs::create_directories(screen_.scene.sink());
        ASSERT_TRUE(record.write(screen_.scene.sink(), screen_.scene.run.files()));
    }
    AppStore& store() { return screen_.store(); }

    ScreenScene screen_;
};

TEST_F(PausedRunCard, SaysWhatThereIsToGoOnWith) {
    leave(stoppedRun());
    EXPECT_FALSE(screen_.isShown("pausedRunSlot"));
    store().setSink(screen_.scene.sink());
    EXPECT_EQ(
        screen_.texts("pausedRunSlot"),
        (QStringList{"Paused Run", "3 photos left to sort into Birds",
                     "Birds ran out of space partway through. Free some room and resume. Nothing "
                     "was moved — these photos are still where you left them.",
                     "From", "a.jpg, b.jpg", "To", "Birds", "Calls", "Custom · files at 54%",
                     "Done so far", "1 sorted · 0 to review", "Resume sorting", "Discard"}));
    screen_.picture("paused-run");
}

TEST_F(PausedRunCard, HasItsSymbolItsColoursAndItsColumnOfLabels) {
    constexpr QRgb white = qRgb(255, 255, 255);
    constexpr QRgb subtext = qRgb(140, 140, 140);
    leave(stoppedRun());
    store().setSink(screen_.scene.sink());
    store().setOriginals(AppStore::Originals::Trash);
    EXPECT_EQ(screen_.find("pausedSymbol")->property("symbol"), "pause");
    EXPECT_EQ(screen_.color("pausedSymbol").rgb(), white);
    EXPECT_EQ(screen_.color("pausedSummary").rgb(), white);
    EXPECT_EQ(screen_.color("pausedExplanation").rgb(), subtext);
    EXPECT_EQ(screen_.color("pausedMismatch").rgb(), qRgb(242, 191, 64));
    for (const char* row : {"pausedFrom", "pausedTo", "pausedCalls", "pausedDone"}) {
        QQuickItem* const detail = screen_.find(row);
        const QQuickItem* const label = screen_.find("label", detail);
        EXPECT_EQ(label->width(), 76) << row;
        EXPECT_EQ(label->property("color").value<QColor>().rgb(), subtext) << row;
        EXPECT_EQ(screen_.find("value", detail)->property("color").value<QColor>().rgb(), white);
    }
    EXPECT_EQ(screen_.find("resumeButton")->property("fill").value<QColor>().rgb(),
              qRgb(200, 240, 96));
    EXPECT_EQ(screen_.find("discardButton")->property("ink").value<QColor>().rgb(), subtext);
}

TEST_F(PausedRunCard, WarnsOfOtherOptionsAndTakesItBack) {
    leave(stoppedRun());
    store().setSink(screen_.scene.sink());
    EXPECT_FALSE(screen_.isShown("pausedMismatch"));
    store().setOriginals(AppStore::Originals::Trash);
    EXPECT_EQ(screen_.text("pausedMismatch"),
              "Your current options differ from the paused run. Resuming uses the paused settings, "
              "so the folder stays consistent.");
    EXPECT_TRUE(screen_.isOn("Resume sorting"));
    screen_.picture("paused-run-mismatch");
    store().setOriginals(AppStore::Originals::Keep);
    EXPECT_FALSE(screen_.isShown("pausedMismatch"));
}

TEST_F(PausedRunCard, IsBroughtIntoSight) {
    leave(stoppedRun());
    screen_.resize(720, 560);
    screen_.scene.pictures(1);
    screen_.scene.chooseFolders();
    EXPECT_TRUE(waitUntil([&] { return screen_.isInSight("pausedRunSlot"); }));
}

TEST_F(PausedRunCard, GoesAfterDiscard) {
    leave(stoppedRun());
    store().setSink(screen_.scene.sink());
    screen_.click("Discard");
    EXPECT_FALSE(screen_.isShown("pausedRunSlot"));
    EXPECT_FALSE(fs::exists(PausedRun::manifestURL(screen_.scene.sink())));
}

TEST_F(PausedRunCard, ShowsForAnotherSourceToo) {
    leave(stoppedRun());
    screen_.scene.pictures(1);
    screen_.scene.chooseFolders();
    EXPECT_TRUE(screen_.isShown("pausedRunSlot"));
    EXPECT_EQ(screen_.texts("pausedFrom"), (QStringList{"From", "a.jpg, b.jpg"}));
}

TEST_F(PausedRunCard, ResumesAndDoesntComeBackAfterTheEnd) {
    leave(stoppedRun());
    screen_.scene.pictures(4);
    screen_.scene.chooseFolders();
    screen_.click("Resume sorting");
    EXPECT_EQ(store().jobState(), JobState::running);
    EXPECT_FALSE(screen_.isShown("pausedRunSlot"));
    ASSERT_TRUE(screen_.scene.waitForEnd());
    EXPECT_FALSE(screen_.isShown("pausedRunSlot"));
    EXPECT_FALSE(fs::exists(PausedRun::manifestURL(screen_.scene.sink())));
}

TEST_F(PausedRunCard, OfAHugeRunIsNoHigher) {
    PausedRun record = stoppedRun();
    record.sourcePaths.assign(20000, "/media/card/DCIM/IMG_0001.JPG");
    leave(record);
    store().setSink(screen_.scene.sink());
    QQuickItem* const names = screen_.find("pausedFrom");
    ASSERT_TRUE(names);
    EXPECT_LT(names->height(), 80);
    screen_.picture("paused-run-huge");
}

}  // namespace
}  // namespace ornivo::app
