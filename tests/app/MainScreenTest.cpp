#include <gtest/gtest.h>

#include <QAccessible>
#include <QGuiApplication>
#include <QScopeGuard>
#include <QTest>
#include <latch>

#include "app/ScreenScene.h"
#include "platform/GroupedNumber.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
namespace fs = std::filesystem;

class MainScreen : public ::testing::Test {
protected:
    /// A scan that finds so many files, without any being there.
    void pretendToFind(int count) {
        screen_.scene.services.scan = [count](const fs::path& folder) {
            FileScanner::Scan scan;
            for (int i = 0; i < count; ++i) scan.images.push_back(folder / std::to_string(i));
            scan.totalBytes = count;
            return scan;
        };
        screen_.scene.services.survey = [count](const auto&) {
            return PhotoLocationSurvey(count, count);
        };
    }
    void choose() {
        screen_.scene.chooseFolders();
        fs::create_directories(screen_.scene.sink());
    }

    AppStore& store() { return screen_.store(); }

    ScreenScene screen_;
};

TEST_F(MainScreen, AtLaunchWaitsForFolders) {
    EXPECT_EQ(screen_.cards(), (QStringList{"options", "preview"}));
    EXPECT_EQ(screen_.text("footerStatus"), "Choose both folders to continue");
    EXPECT_FALSE(screen_.isOn("Sort Photos"));
    EXPECT_EQ(screen_.texts("sourceRow"),
              (QStringList{"SOURCE", "Where your unsorted photos live", "Browse"}));
    EXPECT_EQ(screen_.texts("sinkRow"),
              (QStringList{"SINK", "Where sorted bird folders will be created", "Browse"}));
    EXPECT_FALSE(screen_.isShown("sourceStatus"));
    EXPECT_FALSE(screen_.isShown("spaceAdvice"));
    EXPECT_FALSE(screen_.isShown("recentSources"));
    EXPECT_FALSE(screen_.isShown("recentSinks"));
    EXPECT_FALSE(screen_.isShown("regionOffer"));
    EXPECT_EQ(screen_.text("tagline"), "Bird photo organiser · v" + AppStore::version());
    screen_.picture("launch");
}

TEST_F(MainScreen, AsksForFoldersByItsButtonsAndKeys) {
    screen_.click("Browse SOURCE");
    EXPECT_TRUE(store().pickingSource());
    screen_.click("Browse SINK");
    EXPECT_TRUE(store().pickingSink());
    store().setPickingSource(false);
    store().setPickingSink(false);
    QTest::keyClick(&screen_.window(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(store().pickingSource());
    QTest::keyClick(&screen_.window(), Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(store().pickingSink());
}

TEST_F(MainScreen, IsReadyWithBothFolders) {
    pretendToFind(12345);
    choose();
    const QString count = QString::fromStdString(groupedNumber(12345));
    EXPECT_EQ(screen_.text("footerStatus"), "Ready — " + count + " photos");
    EXPECT_EQ(screen_.text("sourceStatus"), count + " photos found (including subfolders)");
    EXPECT_EQ(screen_.texts("sourceRow").at(1).toStdString(), screen_.scene.source().string());
    EXPECT_EQ(screen_.texts("sinkRow").at(1).toStdString(), screen_.scene.sink().string());
    EXPECT_TRUE(screen_.isOn("Sort Photos"));
    EXPECT_TRUE(screen_.isShown("spaceAdvice"));
    screen_.picture("ready");
    screen_.resize(720, 560);
    screen_.picture("ready-small");
    screen_.resize(1920, 1080);
    screen_.picture("ready-large");
}

TEST_F(MainScreen, SaysThatItScansThenThatItFoundNothing) {
    std::latch mayEnd(1);
    screen_.scene.services.scan = [&](const fs::path&) {
        mayEnd.wait();
        return FileScanner::Scan();
    };
    screen_.window();
    store().setSource(screen_.scene.source());
    EXPECT_EQ(screen_.text("sourceStatus"), "Scanning…");
    mayEnd.count_down();
    ASSERT_TRUE(screen_.scene.waitForScan());
    EXPECT_EQ(screen_.text("sourceStatus"), "No photos found");
    EXPECT_EQ(screen_.color("sourceStatus").rgb(), qRgb(242, 191, 64));
    EXPECT_FALSE(screen_.isOn("Sort Photos"));
}

TEST_F(MainScreen, SaysWhyASourceIsRefused) {
    const fs::path library = screen_.scene.source() / "Trip.photoslibrary";
    fs::create_directories(library);
    store().setSource(library);
    ASSERT_TRUE(screen_.scene.waitForScan());
    EXPECT_EQ(screen_.text("sourceStatus"), store().scanRefusal());
    EXPECT_GT(screen_.text("sourceStatus").size(), 20);
    screen_.picture("refused");
}

class Advice : public MainScreen,
               public ::testing::WithParamInterface<std::pair<SpaceEstimate::Verdict, QRgb>> {};

TEST_P(Advice, HasTheColourOfItsVerdict) {
    const SpaceEstimate estimate{.photographBytes = 64'000'000'000,
                                 .requiredBytes = 64'000'000'000,
                                 .availableBytes = 65'000'000'000,
                                 .destinationVolumeName = "Birds",
                                 .verdict = GetParam().first};
    pretendToFind(3);
    screen_.scene.services.estimate = [&](auto, const auto&, const auto&) { return estimate; };
    choose();
    EXPECT_EQ(screen_.text("spaceAdvice").toStdString(), estimate.advice());
    EXPECT_EQ(screen_.color("spaceAdvice").rgb(), GetParam().second);
    screen_.picture(QStringLiteral("space-%1").arg(static_cast<int>(GetParam().first)));
}

INSTANTIATE_TEST_SUITE_P(
    Verdicts, Advice,
    ::testing::Values(std::pair(SpaceEstimate::Verdict::clones, qRgb(200, 240, 96)),
                      std::pair(SpaceEstimate::Verdict::fits, qRgb(140, 140, 140)),
                      std::pair(SpaceEstimate::Verdict::tight, qRgb(242, 191, 64)),
                      std::pair(SpaceEstimate::Verdict::doesNotFit, qRgb(230, 89, 89))));

TEST_F(MainScreen, OffersARegionOnlyToPhotographsWithoutAPlace) {
    pretendToFind(3);
    screen_.scene.services.survey = [](const auto&) { return PhotoLocationSurvey(3, 0); };
    choose();
    ASSERT_TRUE(screen_.isShown("regionOffer"));
    EXPECT_EQ(screen_.texts("regionOffer"),
              (QStringList{"These photos carry no location.",
                           "Naming where you were shooting makes the classifier prefer birds "
                           "actually recorded there. Species from elsewhere are ranked lower, "
                           "never ruled out.",
                           "Choose a region…"}));
    screen_.picture("region-offer");
    screen_.click("Choose a region…");
    EXPECT_TRUE(store().showingSettings());
    store().setAssumedRegionID("IN-KL");
    EXPECT_FALSE(screen_.isShown("regionOffer"));
}

TEST_F(MainScreen, OffersNoRegionWhereSomeCarryAPlace) {
    pretendToFind(3);
    screen_.scene.services.survey = [](const auto&) { return PhotoLocationSurvey(3, 1); };
    choose();
    EXPECT_FALSE(screen_.isShown("regionOffer"));
}

TEST_F(MainScreen, OffersNoRegionWhereNoneWasLookedAt) {
    pretendToFind(3);
    screen_.scene.services.survey = [](const auto&) { return PhotoLocationSurvey(0, 0, 3); };
    choose();
    EXPECT_FALSE(screen_.isShown("regionOffer"));
}

TEST_F(MainScreen, ListsRecentFoldersByTheirLastNames) {
    for (const char* name : {"Estuary", "Marsh at dawn"}) {
        fs::create_directories(screen_.scene.source() / name);
        store().setSource(screen_.scene.source() / name);
        store().setSink(screen_.scene.source() / name);
    }
    EXPECT_EQ(screen_.texts("recentSources"), (QStringList{"RECENT", "Marsh at dawn", "Estuary"}));
    EXPECT_EQ(screen_.texts("recentSinks"), (QStringList{"RECENT", "Marsh at dawn", "Estuary"}));
    screen_.picture("recent");
    screen_.click("Estuary");
    EXPECT_EQ(store().source(), screen_.scene.source() / "Estuary");
    EXPECT_EQ(store().sink(), screen_.scene.source() / "Marsh at dawn");
}

TEST_F(MainScreen, ChangesItsModeAndForgetsResults) {
    screen_.scene.pictures(1);
    choose();
    screen_.scene.runToItsEnd();
    ASSERT_TRUE(screen_.isShown("sortResultSlot"));
    screen_.click("Sort All");
    EXPECT_FALSE(screen_.isShown("sortResultSlot")) << "also when the mode was selected already";
    screen_.click("Find Species");
    EXPECT_EQ(store().appMode(), AppMode::find);
    EXPECT_EQ(screen_.cards(), (QStringList{"targetSpecies", "options", "prediction"}));
    EXPECT_EQ(screen_.text("footerStatus"), "Choose one or more species to search for");
    EXPECT_EQ(screen_.texts("primaryButton"), QStringList{"Find Species"});
}

TEST_F(MainScreen, ForgetsTheResultOfASearchToo) {
    screen_.scene.pictures(1);
    choose();
    store().setMode(AppStore::Mode::Find);
    store().addSpecies("European Robin", "Erithacus rubecula");
    screen_.scene.runToItsEnd();
    ASSERT_TRUE(screen_.isShown("findResultSlot"));
    screen_.click("Sort All");
    EXPECT_FALSE(screen_.isShown("findResultSlot"));
    EXPECT_FALSE(store().findResult());
    EXPECT_EQ(screen_.cards(), (QStringList{"options", "prediction", "preview"}));
}

TEST_F(MainScreen, AFindWithASpeciesShowsWhatWillHappen) {
    pretendToFind(3);
    choose();
    store().setMode(AppStore::Mode::Find);
    store().addSpecies("Bald Eagle", "Haliaeetus leucocephalus");
    EXPECT_EQ(screen_.cards(), (QStringList{"targetSpecies", "options", "preview"}));
    EXPECT_EQ(
        screen_.texts("previewSlot"),
        (QStringList{"What Will Happen", QString::fromStdString(screen_.scene.sink().string()),
                     "Bald Eagle/", "       └─ ", "matched-photo.jpg"}));
    EXPECT_EQ(screen_.text("footerStatus"), "Ready — 3 photos");
    screen_.picture("find-ready");
}

TEST_F(MainScreen, UnknownSpeciesAreWarnedOfAndDontTurnTheButtonOff) {
    pretendToFind(3);
    choose();
    store().setMode(AppStore::Mode::Find);
    store().addSpecies("Dodo", "");
    EXPECT_EQ(screen_.text("footerStatus"),
              "This build cannot recognise Dodo — remove it to search");
    EXPECT_TRUE(screen_.find("primaryButton")->isEnabled());
    screen_.picture("find-unknown");
}

TEST_F(MainScreen, ThePreviewFollowsTheOptions) {
    EXPECT_EQ(screen_.texts("previewSlot"),
              (QStringList{"What Will Happen", "/your/sink/folder", "  ├─ ", "Painted Stork/",
                           "  ├─ ", "Indian Roller/", "  └─ ", "_Uncertain/"}));
    store().setDateSubfolders(true);
    EXPECT_EQ(screen_.texts("previewSlot").mid(4, 2), (QStringList{"  │   └─ ", "2026-05-31/"}));
}

TEST_F(MainScreen, OpensItsSettings) {
    screen_.click("Settings");
    EXPECT_TRUE(store().showingSettings());
    EXPECT_TRUE(waitUntil([&] { return screen_.control("Done") != nullptr; }));
    QTest::keyClick(&screen_.window(), Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return !store().showingSettings(); }));
}

TEST_F(MainScreen, IsWalkedThroughByTabInReadingOrder) {
    pretendToFind(3);
    choose();
    EXPECT_EQ(screen_.tabOrder().join('|').toStdString(),
              (QStringList{"Settings", "Sort All", "Find Species", "Browse SOURCE", "source",
                           "Browse SINK", "sorted", "Keep originals",
                           "Move originals to the Trash after sorting", "Rename files by species",
                           "Create date subfolders", "Confirmed", "Most likely", "Probable",
                           "Fine tune the call threshold", "Sort Photos"})
                  .join('|')
                  .toStdString());
}

TEST_F(MainScreen, ANameWithALineBreakTakesOneLine) {
    screen_.window();
    const fs::path plain = screen_.scene.source() / "Marsh at dawn";
    const fs::path broken = screen_.scene.source() / "Marsh\nat dawn";
    fs::create_directories(plain);
    fs::create_directories(broken);
    store().setSource(plain);
    const double height = screen_.find("sourceRow")->height();
    const double recent = screen_.find("recentSources")->height();
    store().setSource(broken);
    EXPECT_EQ(screen_.texts("sourceRow").at(1).toStdString(), plain.string());
    EXPECT_TRUE(waitUntil([&] {
        return screen_.texts("recentSources") ==
               QStringList{"RECENT", "Marsh at dawn", "Marsh at dawn"};
    }));
    EXPECT_EQ(screen_.find("sourceRow")->height(), height);
    EXPECT_EQ(screen_.find("recentSources")->height(), recent);
}

TEST_F(MainScreen, LabelsGrowWithTheDesktopsTypeAsFarAsTheirColumnAllows) {
    const QFont usual = QGuiApplication::font();
    const auto restore = qScopeGuard([&] { QGuiApplication::setFont(usual); });
    const auto label = [&](const char* row) { return screen_.find(row)->childItems().first(); };
    QFont large = usual;
    large.setPixelSize(22);
    QGuiApplication::setFont(large);
    screen_.window();
    EXPECT_GT(label("sinkRow")->property("contentHeight").toReal(), 16);
    for (const char* row : {"sourceRow", "sinkRow"}) {
        EXPECT_LE(label(row)->property("contentWidth").toReal(), 50) << row;
    }
    screen_.picture("large-type");
}

TEST_F(MainScreen, RecentFoldersAreToldApartByTheirRows) {
    choose();
    for (const auto& [row, name] :
         {std::pair{"recentSources", "Recent sources"}, std::pair{"recentSinks", "Recent sinks"}}) {
        QAccessibleInterface* const spoken =
            QAccessible::queryAccessibleInterface(screen_.find(row));
        ASSERT_TRUE(spoken);
        EXPECT_EQ(spoken->role(), QAccessible::Grouping);
        EXPECT_EQ(spoken->text(QAccessible::Name), name);
    }
}

TEST_F(MainScreen, TheKeyboardBringsARecentFolderWholeIntoSight) {
    for (int i = 0; i < 10; ++i) {
        const fs::path folder =
            screen_.scene.source() / ("A folder with a long name " + std::to_string(i));
        fs::create_directories(folder);
        store().setSource(folder);
    }
    screen_.resize(720, 560);
    QQuickItem* const row = screen_.find("recentSources");
    for (int i = 9; i >= 0; --i) {
        QQuickItem* const button =
            screen_.control(QStringLiteral("A folder with a long name %1").arg(i));
        ASSERT_TRUE(button);
        button->forceActiveFocus(Qt::TabFocusReason);
        // With its ring, which stands outside.
        constexpr double ring = 4;
        EXPECT_LE(button->mapToItem(row, {button->width() + ring, 0}).x(), row->width()) << i;
        EXPECT_GE(button->mapToItem(row, {-ring, 0}).x(), 0) << i;
    }
    screen_.picture("recent-many");
}

TEST_F(MainScreen, AnEdgeShowsUnderTheHeaderWhereCardsGoBehindIt) {
    screen_.resize(720, 560);
    EXPECT_FALSE(screen_.isShown("headerEdge"));
    QTest::keyClick(&screen_.window(), Qt::Key_PageDown);
    EXPECT_TRUE(screen_.isShown("headerEdge"));
    QTest::keyClick(&screen_.window(), Qt::Key_Home);
    EXPECT_FALSE(screen_.isShown("headerEdge"));
}

TEST_F(MainScreen, BringsWhatTheKeyboardIsAtIntoSight) {
    screen_.resize(720, 560);
    QQuickItem* const cards = screen_.find("cards");
    ASSERT_GT(cards->property("contentHeight").toReal(), cards->height());
    screen_.control("Fine tune the call threshold")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_TRUE(waitUntil([&] { return cards->property("contentY").toReal() > 100; }));
    screen_.picture("focus-ring");
    screen_.control("Create date subfolders")->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(&screen_.window(), Qt::Key_Home);
    EXPECT_EQ(cards->property("contentY").toReal(), 0);
    QTest::keyClick(&screen_.window(), Qt::Key_PageDown);
    EXPECT_GT(cards->property("contentY").toReal(), 100);
}

TEST_F(MainScreen, BringsSuggestionsIntoSight) {
    screen_.resize(720, 560);
    pretendToFind(3);
    choose();
    screen_.click("Find Species");
    store().setSpeciesQuery("owl");
    EXPECT_TRUE(waitUntil([&] { return screen_.isInSight("suggestions"); }));
}

TEST_F(MainScreen, ShowsTextsAsTheyStand) {
    const fs::path odd = screen_.scene.source() / "<b>bold<b> &amp; 100%";
    fs::create_directories(odd);
    store().setSource(odd);
    EXPECT_EQ(screen_.texts("recentSources").last(), "<b>bold<b> &amp; 100%");
    EXPECT_EQ(screen_.find("path", screen_.find("sourceRow"))->property("textFormat").toInt(),
              Qt::PlainText);
}

}  // namespace
}  // namespace ornivo::app
