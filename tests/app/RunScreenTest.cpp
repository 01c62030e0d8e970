#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>
#include <exception>
#include <stdexcept>

#include "app/HeldScreen.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
using Operation = FailingFiles::Operation;

class RunScreen : public HeldScreen {};

TEST_F(RunScreen, WhileSortingShowsHowFarItIs) {
    pictures(robin, 2);
    pictures(baldEagle, 3);
    pictures(tit, 3);
    holdAt(5);
    screen_.window();
    startHeld();
    EXPECT_EQ(screen_.cards(), (QStringList{"progress", "prediction"}));
    EXPECT_EQ(screen_.texts("progressSlot"),
              (QStringList{"Sorting in Progress", "Pause", "Stop", "5 of 8 photos processed", "63%",
                           "a5.jpg", "• Bald Eagle: 3", "• European Robin: 2"}));
    EXPECT_EQ(screen_.text("footerStatus"), "Sorting… 63%");
    EXPECT_EQ(screen_.text("primaryButton"), "Sorting…");
    EXPECT_FALSE(screen_.isOn("Sorting…"));
    screen_.picture("sorting");
}

TEST_F(RunScreen, FoldersAndModeAreInertWhileItRuns) {
    pictures(robin, 3);
    holdAt(1);
    screen_.window();
    startHeld();
    for (const char* name : {"Sort All", "Find Species", "Browse SOURCE", "Browse SINK"}) {
        QQuickItem* const button = screen_.control(name);
        ASSERT_TRUE(button) << name;
        EXPECT_FALSE(button->isEnabled()) << name;
    }
    EXPECT_FALSE(screen_.find("recentSources")->isEnabled());
    for (const char* dimmed : {"sourceRow", "sinkRow", "primaryButton"}) {
        EXPECT_NEAR(screen_.find(dimmed)->opacity(), 0.45, 0.001) << dimmed;
    }
    const auto inkOfRecent = [&] {
        return screen_.control("source")->property("ink").value<QColor>().rgb();
    };
    EXPECT_EQ(inkOfRecent(), qRgb(140, 140, 140));
    QTest::keyClick(&screen_.window(), Qt::Key_O, Qt::ControlModifier);
    QTest::keyClick(&screen_.window(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_FALSE(store().pickingSource());
    EXPECT_EQ(store().appMode(), AppMode::sort);
    EXPECT_EQ(screen_.text("sourceStatus"), "3 photos found (including subfolders)");
    letGo();
    ASSERT_TRUE(screen_.scene.waitForEnd());
    for (const char* bright : {"sourceRow", "sinkRow", "primaryButton"}) {
        EXPECT_EQ(screen_.find(bright)->opacity(), 1) << bright;
    }
    EXPECT_EQ(inkOfRecent(), qRgb(200, 240, 96));
}

TEST_F(RunScreen, IsPausedResumedAndStoppedByItsButtons) {
    pictures(robin, 6);
    holdAt(2);
    screen_.window();
    startHeld();
    screen_.click("Pause");
    EXPECT_TRUE(waitUntil([&] { return store().jobState() == JobState::paused; }));
    EXPECT_EQ(screen_.text("progressCount"), "Paused — 2 of 6 photos processed");
    EXPECT_FALSE(screen_.control("Pause"));
    screen_.picture("paused");
    screen_.click("Resume");
    EXPECT_TRUE(waitUntil([&] { return store().jobState() == JobState::running; }));
    EXPECT_EQ(screen_.text("progressCount"), "2 of 6 photos processed");
    screen_.click("Stop");
    letGo();
    ASSERT_TRUE(screen_.scene.waitForEnd());
    ASSERT_TRUE(store().sortResult()->stopped);
    const QString stopped =
        QStringLiteral("Stopped at %1/6 — results saved").arg(store().sortResult()->processed);
    EXPECT_TRUE(screen_.texts("sortResultSlot").contains(stopped));
    EXPECT_EQ(screen_.text("footerStatus"), "Sort complete!");
    screen_.picture("stopped");
}

TEST_F(RunScreen, IsPausedByItsKeys) {
    pictures(robin, 3);
    holdAt(1);
    screen_.window();
    startHeld();
    QTest::keyClick(&screen_.window(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(waitUntil([&] { return store().jobState() == JobState::paused; }));
    QTest::keyClick(&screen_.window(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(waitUntil([&] { return store().jobState() == JobState::running; }));
    QTest::keyClick(&screen_.window(), Qt::Key_Period, Qt::ControlModifier);
    letGo();
    EXPECT_TRUE(screen_.scene.waitForEnd());
}

TEST_F(RunScreen, BeforeTheFirstFileHasNoFileLineAndNoSpecies) {
    pictures(robin, 1);
    screen_.window();
    screen_.scene.chooseFolders();
    store().tapPrimaryCTA();
    EXPECT_EQ(screen_.cards(), QStringList{"progress"});
    EXPECT_FALSE(screen_.isShown("progressFile"));
    EXPECT_FALSE(screen_.isShown("speciesList"));
    EXPECT_EQ(screen_.text("progressPercent"), "0%");
    EXPECT_TRUE(screen_.scene.waitForEnd());
}

TEST_F(RunScreen, TheBarIsReadAloudWithItsPercentage) {
    pictures(robin, 4);
    holdAt(1);
    screen_.window();
    startHeld();
    QAccessibleInterface* const bar =
        QAccessible::queryAccessibleInterface(screen_.find("progressBar"));
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    EXPECT_EQ(bar->text(QAccessible::Name), "1 of 4 photos processed, 25%");
    EXPECT_EQ(screen_.find("progressBar")->property("position").toDouble(), 0.25);
}

TEST_F(RunScreen, BringsIntoSightWhatHasCome) {
    pictures(robin, 2);
    screen_.resize(720, 560);
    screen_.scene.chooseFolders();
    screen_.scene.runToItsEnd();
    EXPECT_TRUE(waitUntil([&] { return screen_.isInSight("sortResultSlot"); }));
}

TEST_F(RunScreen, AtItsEndShowsWhatItDid) {
    pictures(robin, 2);
    pictures(baldEagle, 1, 0.45);
    screen_.window();
    screen_.scene.chooseFolders();
    screen_.scene.runToItsEnd();
    EXPECT_EQ(screen_.cards(), (QStringList{"options", "prediction", "sortResult"}));
    QStringList result = screen_.texts("sortResultSlot");
    const QString ending = result.takeAt(4);
    EXPECT_EQ(result,
              (QStringList{
                  "Sort Result", "✓ 2 photos sorted into bird folders", "? 1 moved to _Uncertain/",
                  "1 photos had no confirmed call — accept probable calls?", "Reveal in Finder"}));
    EXPECT_TRUE(ending.startsWith("1 species · ")) << ending.toStdString();
    EXPECT_EQ(screen_.text("footerStatus"), "Sort complete!");
    EXPECT_TRUE(screen_.isOn("Sort Photos"));

    EXPECT_EQ(screen_.text("predictionName"), "Bald Eagle");
    EXPECT_EQ(screen_.text("predictionConfidence"), "45% confidence");
    EXPECT_EQ(screen_.text("confidenceBadge"), "Low confidence");
    screen_.click("Reveal in Finder");
    EXPECT_EQ(screen_.reveals.folders, std::vector{screen_.scene.sink()});
    screen_.picture("sorted");
}

TEST_F(RunScreen, ASinkThatIsGoneLeavesTheButtonInPlace) {
    pictures(robin, 1);
    screen_.window();
    screen_.scene.chooseFolders();
    screen_.scene.runToItsEnd();
    std::filesystem::remove_all(screen_.scene.sink());
    ASSERT_TRUE(screen_.isShown("revealButton"));
    screen_.click("Reveal in Finder");
    EXPECT_EQ(screen_.reveals.folders, std::vector{screen_.scene.sink()});
}

TEST_F(RunScreen, DoesntBlockTheSettings) {
    pictures(robin, 3);
    holdAt(1);
    screen_.window();
    startHeld();
    screen_.click("Settings");
    ASSERT_TRUE(waitUntil([&] { return screen_.control("Confirm near-misses") != nullptr; }));
    screen_.click("Confirm near-misses");
    EXPECT_EQ(store().burstInheritance(), BurstInheritance::confirmedOnly);
    EXPECT_EQ(store().jobState(), JobState::running);
    letGo();
    ASSERT_TRUE(screen_.scene.waitForEnd());
    EXPECT_EQ(store().sortResult()->sorted, 3);
    EXPECT_TRUE(screen_.isShown("sheetBody"));
}

TEST_F(RunScreen, WithWarningsShowsTheFirstThreeAndCountsTheRest) {
    pictures(robin, 5);
    for (int i = 0; i < 5; ++i) screen_.scene.run.sidecar("a" + std::to_string(i) + ".xmp");
    screen_.scene.run.files().fail(
        Operation::copy,
        [](const FailingFiles::Attempt& attempt) { return attempt.path.extension() == ".xmp"; },
        notPermitted());
    screen_.window();
    screen_.scene.chooseFolders();
    screen_.scene.runToItsEnd();
    const auto& warnings = store().sortResult()->warnings;
    ASSERT_EQ(warnings.size(), 5U);
    EXPECT_EQ(screen_.texts("warnings"),
              (QStringList{QString::fromStdString(warnings[0]), QString::fromStdString(warnings[1]),
                           QString::fromStdString(warnings[2]), "+ 2 more"}));
    screen_.picture("warnings");
}

TEST_F(RunScreen, AShotThatFailsShowsItsNoticeAndNoBadge) {
    screen_.scene.run.failingPicture("a.jpg",
                                     std::make_exception_ptr(std::runtime_error("Too dark.")));
    screen_.window();
    screen_.scene.chooseFolders();
    screen_.scene.runToItsEnd();
    EXPECT_EQ(screen_.texts("predictionSlot"),
              (QStringList{"Latest Identification", "Identified on-device", "Too dark."}));
    EXPECT_FALSE(screen_.isShown("warnings"));
    EXPECT_TRUE(screen_.texts("sortResultSlot").contains("✗ 1 errors"));
    screen_.picture("failed");
}

TEST_F(RunScreen, AnUnsureShotShowsItsNoticeAndNoBadge) {
    pictures(robin, 1, 0.39);
    screen_.window();
    screen_.scene.chooseFolders();
    screen_.scene.runToItsEnd();
    EXPECT_EQ(screen_.text("predictionNotice"), "Low confidence — review _Uncertain/");
    EXPECT_FALSE(screen_.isShown("predictionName"));
    EXPECT_FALSE(screen_.isShown("confidenceBadge"));
}

TEST_F(RunScreen, ASearchHasItsOwnWords) {
    pictures(baldEagle, 2);
    pictures(robin, 3);
    holdAt(1);
    screen_.window();
    store().setMode(AppStore::Mode::Find);
    store().addSpecies("Bald Eagle", "Haliaeetus leucocephalus");
    startHeld();
    EXPECT_EQ(screen_.texts("progressSlot").first(), "Searching in Progress");
    EXPECT_EQ(screen_.text("footerStatus"), "Searching… 20%");
    EXPECT_EQ(screen_.text("primaryButton"), "Searching…");
    screen_.picture("searching");
    letGo();
    ASSERT_TRUE(screen_.scene.waitForEnd());
    const QStringList result = screen_.texts("findResultSlot");
    EXPECT_EQ(result.mid(0, 3), (QStringList{"Search Result", "✓ 2 photos matched and copied",
                                             "~ 3 scanned, no match"}));
    EXPECT_EQ(result.last(), "Reveal in Finder");
    EXPECT_EQ(screen_.text("footerStatus"), "Search complete!");
    EXPECT_FALSE(screen_.isShown("sortResultSlot"));
    screen_.picture("searched");
}

TEST_F(RunScreen, AFullDiskSaysWhereAndOffersToGoOn) {
    pictures(robin, 6);
    screen_.scene.run.files().fail(Operation::copy, from(4), noSpaceLeft());
    screen_.window();
    screen_.scene.chooseFolders();
    screen_.scene.runToItsEnd();
    const QStringList result = screen_.texts("sortResultSlot");
    EXPECT_TRUE(result.contains("Stopped at photo 3 of 6 — " +
                                QString::fromStdString(screen_.scene.sink().filename().string()) +
                                " is full"));
    EXPECT_TRUE(result.contains(
        "Free some space and resume — the rest are untouched in your source folder"));
    EXPECT_EQ(screen_.cards(), (QStringList{"pausedRun", "options", "prediction", "sortResult"}));
    screen_.picture("disk-full");
}

}  // namespace
}  // namespace ornivo::app
