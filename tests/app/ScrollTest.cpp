#include <gtest/gtest.h>

#include <QScreen>
#include <QTest>

#include "app/AppWindow.h"
#include "app/HeldScreen.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;

/// What of a column can be seen in the smallest window.
class Scroll : public HeldScreen {
protected:
    void SetUp() override { screen_.resize(720, 560); }
    void key(Qt::Key key) { QTest::keyClick(&screen_.window(), key); }
    double place(const char* column) { return screen_.find(column)->property("contentY").toReal(); }
    double end(const char* column) {
        const QQuickItem* const item = screen_.find(column);
        return item->property("contentHeight").toReal() - item->height();
    }
    /// What has just been opened grows until its texts are laid out.
    bool isAtRest(const char* column) {
        const double before = end(column);
        QTest::qWait(50);
        return end(column) == before;
    }
    void pressTheKeysOf(const char* column) {
        ASSERT_TRUE(waitUntil([&] { return isAtRest(column); }));
        ASSERT_GT(end(column), 100);
        key(Qt::Key_End);
        EXPECT_EQ(place(column), end(column));
        key(Qt::Key_PageUp);
        EXPECT_LT(place(column), end(column));
        key(Qt::Key_Home);
        EXPECT_EQ(place(column), 0);
        key(Qt::Key_PageDown);
        EXPECT_GT(place(column), 100);
        key(Qt::Key_Home);
    }
    /// So many species, each of them once.
    void species(int count) {
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(i);
            pictures({"Avis_" + number, "Bird " + number}, 1);
        }
    }
};

TEST_F(Scroll, ObeysTheKeysWhereverTheKeyboardIs) {
    pressTheKeysOf("cards");
    key(Qt::Key_Tab);
    ASSERT_EQ(accessibleName(screen_.window().activeFocusItem()), "Settings");
    pressTheKeysOf("cards");
}

TEST_F(Scroll, OfASheetObeysTheKeysWhereverTheKeyboardIs) {
    store().setShowingSettings(true);
    ASSERT_TRUE(waitUntil([&] { return screen_.isShown("sheetBody"); }));
    pressTheKeysOf("sheetBody");
    key(Qt::Key_Tab);
    ASSERT_EQ(accessibleName(screen_.window().activeFocusItem()), "Done");
    pressTheKeysOf("sheetBody");
    EXPECT_EQ(place("cards"), 0);
}

TEST_F(Scroll, KeepsTheLatestIdentificationAndTheButtonsOfTheRunInSight) {
    species(15);
    holdAt(4);
    startHeld();
    for (int count = 4; count <= 13; ++count) {
        if (count > 4) goOnTo(count);
        for (const char* part : {"predictionSlot", "pauseButton", "stopButton"}) {
            EXPECT_TRUE(waitUntil([&] { return screen_.isInSight(part); }))
                << part << " with " << count << " species";
        }
        ASSERT_FALSE(HasFailure());
    }
    screen_.picture("many-species");
}

TEST_F(Scroll, ShowsAtLeastThreeSpecies) {
    species(15);
    holdAt(13);
    startHeld();
    EXPECT_TRUE(waitUntil([&] { return screen_.isInSight("predictionSlot"); }));
    const QQuickItem* const list = screen_.find("speciesLines");
    ASSERT_TRUE(list);
    EXPECT_EQ(list->property("count").toInt(), 13);
    EXPECT_GE(list->height(), 3 * list->property("rowHeight").toReal());
    EXPECT_LT(list->height(), 13 * list->property("rowHeight").toReal());
    screen_.resize(912, 1400);
    EXPECT_TRUE(
        waitUntil([&] { return list->height() >= 13 * list->property("rowHeight").toReal(); }));
}

TEST_F(Scroll, ShowsTheOfferToGoOnAfterAFullDisk) {
    pictures(robin, 4);
    screen_.scene.run.files().fail(FailingFiles::Operation::copy, nth(4), noSpaceLeft());
    holdAt(2);
    startHeld();
    EXPECT_TRUE(waitUntil([&] { return screen_.isInSight("predictionSlot"); }));
    // Long enough for it to be what is kept in sight.
    QTest::qWait(300);
    letGo();
    ASSERT_TRUE(screen_.scene.waitForEnd());
    QTest::qWait(500);
    EXPECT_TRUE(waitUntil([&] { return screen_.isInSight("pausedRunSlot"); }));
}

TEST_F(Scroll, LeavesAloneOneWhoHasScrolled) {
    species(15);
    holdAt(4);
    startHeld();
    EXPECT_TRUE(waitUntil([&] { return screen_.isInSight("predictionSlot"); }));
    ASSERT_GT(place("cards"), 0);
    key(Qt::Key_Home);
    goOnTo(13);
    QTest::qWait(600);
    EXPECT_EQ(place("cards"), 0);
}

TEST(WindowHeight, AtLaunchLeavesATenthOfTheScreen) {
    StoreScene scene;
    AppWindow window(scene.store());
    // All cards need more than the screen of a test has.
    EXPECT_EQ(window.window().height(), window.window().screen()->size().height() * 9 / 10);
}

}  // namespace
}  // namespace ornivo::app
