#include <gtest/gtest.h>

#include <QTest>

#include "app/AppWindow.h"
#include "app/HeldScreen.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
namespace fs = std::filesystem;

/// Where the keyboard is, and where it goes when what it was at goes.
class Keyboard : public HeldScreen {
protected:
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&screen_.window(), key, modifiers);
    }
    QString at() {
        QQuickItem* const item = screen_.window().activeFocusItem();
        return item ? accessibleName(item) : QString();
    }
    /// Whether what the keyboard is at can be seen, and shows it.
    bool isMarked() {
        const QQuickItem* const item = screen_.window().activeFocusItem();
        return item && item->isVisible() && item->property("visualFocus").toBool();
    }
    void tabTo(const QString& name) {
        for (int i = 0; i < 60 && at() != name; ++i) key(Qt::Key_Tab);
        ASSERT_EQ(at(), name);
    }
    /// All is chosen for a run of three photographs that is held up at the second.
    void prepareRun() {
        pictures(robin, 3);
        holdAt(1);
        screen_.window();
        screen_.scene.chooseFolders();
    }
    bool comesTo(const QString& name) {
        return waitUntil([&] { return at() == name && isMarked(); });
    }
    void leavePausedRun() {
        PausedRun record;
        record.sourcePaths = {"/media/card/DCIM/a.jpg"};
        record.destination = "/media/nas/Birds";
        record.mode = "sort";
        record.copyMode = "keep";
        record.burstInheritance = "off";
        record.totalPhotos = 4;
        record.stoppedAtIndex = 1;
        fs::create_directories(screen_.scene.sink());
        ASSERT_TRUE(record.write(screen_.scene.sink(), screen_.scene.run.files()));
    }
};

TEST_F(Keyboard, OfARunGoesToPauseAndBackToTheButtonThatBeginsTheNext) {
    prepareRun();
    tabTo("Sort Photos");
    key(Qt::Key_Return);
    waitUntilHeld();
    EXPECT_TRUE(comesTo("Pause")) << at().toStdString();
    key(Qt::Key_Tab);
    EXPECT_EQ(at(), "Stop");
    letGo();
    ASSERT_TRUE(screen_.scene.waitForEnd());
    EXPECT_TRUE(comesTo("Sort Photos")) << at().toStdString();
}

TEST_F(Keyboard, AtARunDoesNotKeepItsResultOutOfSight) {
    screen_.resize(720, 560);
    prepareRun();
    tabTo("Sort Photos");
    key(Qt::Key_Return);
    waitUntilHeld();
    EXPECT_TRUE(comesTo("Pause"));
    letGo();
    ASSERT_TRUE(screen_.scene.waitForEnd());
    EXPECT_TRUE(waitUntil([&] { return screen_.isInSight("sortResultSlot"); }));
}

TEST_F(Keyboard, OfARunThatWasBegunFromACardThatGoesComesToPause) {
    prepareRun();
    tabTo("Fine tune the call threshold");
    key(Qt::Key_Return, Qt::ControlModifier);
    waitUntilHeld();
    EXPECT_TRUE(comesTo("Pause")) << at().toStdString();
}

TEST_F(Keyboard, StaysWithWhatIsStillThere) {
    prepareRun();
    tabTo("Settings");
    key(Qt::Key_Return, Qt::ControlModifier);
    waitUntilHeld();
    EXPECT_TRUE(comesTo("Settings")) << at().toStdString();
}

TEST_F(Keyboard, IsNotMarkedForOneWhoUsesTheMouse) {
    prepareRun();
    screen_.click("Sort Photos");
    waitUntilHeld();
    EXPECT_TRUE(waitUntil([&] { return at() == "Pause"; })) << at().toStdString();
    EXPECT_FALSE(isMarked());
}

TEST_F(Keyboard, AfterDiscardGoesOnToWhatFollows) {
    leavePausedRun();
    store().setSink(screen_.scene.sink());
    tabTo("Discard");
    key(Qt::Key_Return);
    EXPECT_FALSE(screen_.isShown("pausedRunSlot"));
    EXPECT_TRUE(comesTo("Keep originals")) << at().toStdString();
}

TEST_F(Keyboard, AtARecentFolderStaysWithIt) {
    for (const char* name : {"Estuary", "Marsh"}) {
        fs::create_directories(screen_.scene.source() / name);
        store().setSource(screen_.scene.source() / name);
    }
    screen_.window();
    tabTo("Estuary");
    key(Qt::Key_Return);
    EXPECT_EQ(store().source(), screen_.scene.source() / "Estuary");
    EXPECT_TRUE(comesTo("Estuary")) << at().toStdString();
}

TEST_F(Keyboard, ComesBackWhenTheSettingsClose) {
    AppWindow window(store());
    const auto at = [&] { return window.window().activeFocusItem(); };
    const auto isAtSettings = [&] { return at() && accessibleName(at()) == "Settings"; };
    for (int i = 0; i < 60 && !isAtSettings(); ++i) window.key(Qt::Key_Tab);
    ASSERT_TRUE(isAtSettings());
    const QQuickItem* const button = at();
    window.key(Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return store().showingSettings() && at() != button; }));
    window.key(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return at() == button; }));
    EXPECT_FALSE(store().showingSettings());
}

TEST_F(Keyboard, ComesBackWhenTheCreditsClose) {
    store().setShowingSettings(true);
    tabTo("Who made this possible");
    key(Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return screen_.control("Search names") || at() == "Credits"; }));
    key(Qt::Key_Escape);
    EXPECT_TRUE(comesTo("Who made this possible")) << at().toStdString();
    EXPECT_TRUE(store().showingSettings());
}

TEST_F(Keyboard, UnderASheetDoesNothingToTheCards) {
    screen_.window();
    store().setShowingSettings(true);
    EXPECT_TRUE(waitUntil([&] { return screen_.isShown("sheetBody"); }));
    key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(store().appMode(), AppMode::sort);
    key(Qt::Key_O, Qt::ControlModifier);
    EXPECT_FALSE(store().pickingSource());
}

}  // namespace
}  // namespace ornivo::app
