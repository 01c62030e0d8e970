#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <fstream>

#include "app/ElementScene.h"
#include "app/ScreenScene.h"
#include "app/StoreScene.h"
#include "identification/BirdClassifierLabels.h"
#include "identification/BirdIdentifierProvider.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;

const QString accent = "#c8f060";
const QString subtext = "#8c8c8c";
const QString warning = "#f2bf40";

const QString paste = "Paste decisions and file them";
const QString placeField = QString::fromUtf8("or type a place — Kerala, Ladakh, Bangalore…");
const QString coverageField = QString::fromUtf8("Type a bird you photograph…");
const QString nothing = QString::fromUtf8(
    "Nothing to file — the clipboard holds no decisions. Press Copy decisions in review.html "
    "first.");

class SettingsView : public ::testing::Test {
protected:
    app::AppStore& store() { return scene_.store(); }
    ElementScene& screen() {
        if (!screen_) open();
        return *screen_;
    }
    void open() {
        screen_.reset();
        screen_ = std::make_unique<ElementScene>(
            "SettingsView { store: host.store; onClosed: store.showingSettings = false }",
            QVariantMap{{"store", QVariant::fromValue(&store())}});
    }
    void chooseSink() {
        fs::create_directories(scene_.sink() / "_Uncertain");
        store().setSink(scene_.sink());
    }
    void leaveUncertain(const char* name) {
        std::ofstream(scene_.sink() / "_Uncertain" / name) << "picture";
    }
    fs::path filed(const char* folder, const char* name) { return scene_.sink() / folder / name; }
    /// Pastes a text, and answers what is said of it.
    QString pasted(const char* text) {
        QGuiApplication::clipboard()->setText(text);
        screen().press(paste);
        EXPECT_TRUE(waitUntil([&] { return !applyNote().isEmpty(); }));
        return applyNote();
    }
    QString applyNote() { return screen().shownIn("applyNote").join('|'); }
    QString placeNote() { return screen().shownIn("placeNote").join('|'); }
    /// The region whose row is marked, among those in sight.
    QString markedRegion() {
        const QStringList shown = screen().shownIn("regions");
        const auto at = shown.indexOf("[circle-fill]");
        return at < 0 ? QString() : shown[at + 1];
    }
    void usePlace(const QString& place) {
        screen().item("placeField")->setProperty("text", "");
        screen().type(placeField, place);
        // No one is quicker than the scrolling to the field.
        QTest::qWait(100);
        screen().key(Qt::Key_Return);
    }
    bool isInSight(const char* objectName) {
        QQuickItem* const body = screen().item("sheetBody");
        QQuickItem* const item = screen().item(objectName);
        const double top = item->mapToItem(body, QPointF()).y();
        return top >= 0 && top + item->height() <= body->height();
    }

private:
    StoreScene scene_;
    std::unique_ptr<ElementScene> screen_;
};

}  // namespace

TEST_F(SettingsView, ShowsItsSectionsInTheirOrder) {
    const QStringList shown = screen().shown();
    QStringList titles;
    for (const char* const title :
         {"Settings", "Done", "On-device identification", "Reviewed decisions", "Bursts",
          "Where you photograph", "Credits"}) {
        titles.append(title);
    }
    QStringList found;
    for (const QString& text : shown) {
        if (titles.contains(text)) found.append(text);
    }
    EXPECT_EQ(found, titles);
    screen().picture("settings-top");
}

TEST_F(SettingsView, IsWideAndHighEnough) {
    QQuickItem* const body = screen().item("sheetBody");
    ASSERT_TRUE(body);
    EXPECT_GE(body->width(), 478);
    EXPECT_GE(body->height(), 360);
}

TEST_F(SettingsView, TellsWhatIdentifiesAndThatPhotographsStay) {
    ASSERT_TRUE(BirdIdentifierProvider::isModelBundled());
    const QStringList shown = screen().shown();
    const auto at = shown.indexOf("[cpu]");
    EXPECT_EQ(shown.mid(at, 4),
              (QStringList{"[cpu]", "Using BirdClassifier model from the app bundle.",
                           "[lock-shield]", "Photos stay on this device during identification."}));
    EXPECT_EQ(screen().colourOf(shown[at + 1]), subtext);
}

TEST_F(SettingsView, AsksForASinkBeforeDecisionsCanBeFiled) {
    const QString needed =
        QString::fromUtf8("Choose a sorted folder first — that is where the photos will be filed.");
    EXPECT_TRUE(
        screen().shows("Open _Uncertain/review.html, decide what the photos are, then "
                       "press Copy decisions there and Paste here."));
    EXPECT_TRUE(screen().shows("[list-rectangle]"));
    EXPECT_TRUE(screen().shows(needed));
    EXPECT_EQ(screen().colourOf(needed), subtext);
    EXPECT_FALSE(screen().shows(paste));
    chooseSink();
    EXPECT_FALSE(screen().shows(needed));
    EXPECT_TRUE(screen().shows(paste));
    EXPECT_EQ(applyNote(), "");
}

TEST_F(SettingsView, FilesPastedDecisions) {
    chooseSink();
    leaveUncertain("a.jpg");
    leaveUncertain("b.jpg");
    EXPECT_EQ(pasted("filename,species\na.jpg,Robin\nb.jpg,Osprey\n"),
              "Filed 2 photos into 2 folders.");
    EXPECT_EQ(screen().colourOf("Filed 2 photos into 2 folders."), accent);
    EXPECT_TRUE(fs::exists(filed("Robin", "a.jpg")));
    EXPECT_TRUE(fs::exists(filed("Osprey", "b.jpg")));
    screen().picture("settings-filed");
}

TEST_F(SettingsView, APasteOfOtherTextMovesNothing) {
    chooseSink();
    leaveUncertain("a.jpg");
    EXPECT_EQ(pasted("Dear all"), nothing);
    EXPECT_EQ(screen().colourOf(nothing), warning);
    EXPECT_TRUE(fs::exists(filed("_Uncertain", "a.jpg")));
    EXPECT_EQ(pasted(""), nothing);
}

TEST_F(SettingsView, APasteOfWhatIsAlreadyFiledIsNoSuccess) {
    chooseSink();
    const QString said = QString::fromUtf8(
        "Filed 0 photos into 0 folders. 2 were not in _Uncertain — already filed, or renamed.");
    EXPECT_EQ(pasted("a.jpg,Robin\nb.jpg,Robin"), said);
    EXPECT_EQ(screen().colourOf(said), warning);
}

TEST_F(SettingsView, APartialPasteSaysEverythingAndIsASuccess) {
    chooseSink();
    leaveUncertain("a.jpg");
    const QString said = QString::fromUtf8(
        "Filed 1 photo into 1 folder. 1 were not in _Uncertain — already filed, or renamed. 1 "
        "could not be moved.");
    EXPECT_EQ(pasted("a.jpg,Robin\nb.jpg,Robin\nc.jpg,.."), said);
    EXPECT_EQ(screen().colourOf(said), accent);
}

TEST_F(SettingsView, BurstsAreChosenAndExplained) {
    struct Case {
        const char* title;
        BurstInheritance inheritance;
        const char* begins;
        QString colour;
    };
    EXPECT_EQ(store().burstInheritance(), BurstInheritance::off);
    for (const Case& row :
         {Case{"Confirm near-misses", BurstInheritance::confirmedOnly, "When a frame", subtext},
          Case{"Also correct identifications", BurstInheritance::confirmedAndCorrected,
               "Also changes", warning},
          Case{"Off", BurstInheritance::off, "Photographers shoot", subtext}}) {
        screen().press(row.title);
        EXPECT_EQ(store().burstInheritance(), row.inheritance) << row.title;
        EXPECT_EQ(store().options().burstInheritance, row.inheritance);
        const QStringList shown = screen().shown();
        EXPECT_EQ(shown[shown.indexOf(row.title) - 1], "[circle-fill]");
        const QString explanation = screen().shownIn("burstExplanation").join('|');
        EXPECT_TRUE(explanation.startsWith(row.begins)) << explanation.toStdString();
        EXPECT_EQ(screen().colourOf(explanation), row.colour);
        screen().picture(QString("settings-bursts-") + row.title);
    }
}

TEST_F(SettingsView, NoRegionIsNamedAtFirst) {
    EXPECT_EQ(markedRegion(), "Use each photo's own location");
    EXPECT_TRUE(screen()
                    .shownIn("regionExplanation")
                    .join('|')
                    .startsWith(QString("The classifier knows %1 species worldwide.")
                                    .arg(BirdClassifierLabels::speciesCount())));
    EXPECT_EQ(screen().item("regions")->height(), 132);
    EXPECT_EQ(screen().item("regions")->property("count").toInt(),
              static_cast<int>(app::AppStore::rangeTable()->regions().size()) + 1);
}

TEST_F(SettingsView, APlaceNamesItsRegion) {
    usePlace(" bangalore ");
    EXPECT_EQ(store().assumedRegionID(), "southern-india");
    const QString said = QString::fromUtf8("Bangalore → Deccan and Coromandel coast.");
    EXPECT_EQ(placeNote(), said);
    EXPECT_EQ(screen().colourOf(said), accent);
    EXPECT_EQ(markedRegion(), "Deccan and Coromandel coast");
    EXPECT_TRUE(waitUntil([&] { return isInSight("placeNote") && isInSight("regions"); }));
    EXPECT_TRUE(screen().shownIn("regionExplanation").join('|').startsWith("Species with no"));
    EXPECT_TRUE(store().options().assumedLocation);
    screen().picture("settings-region");
}

TEST_F(SettingsView, APlaceThatIsARegionIsUsed) {
    usePlace("Ladakh");
    EXPECT_EQ(placeNote(), "Using Ladakh.");
}

TEST_F(SettingsView, AnUnknownPlaceChangesNothing) {
    store().setAssumedRegionID("kenya");
    usePlace("Xyzzyville");
    const QString said =
        QString::fromUtf8("Couldn't place “Xyzzyville”. Try a state, country or major city.");
    EXPECT_EQ(placeNote(), said);
    EXPECT_EQ(screen().colourOf(said), warning);
    EXPECT_EQ(store().assumedRegionID(), "kenya");
    screen().picture("settings-place-unknown");
}

TEST_F(SettingsView, TheButtonUseIsThereWhileSomethingIsTyped) {
    EXPECT_FALSE(screen().shows("Use"));
    screen().type(placeField, "Kenya");
    EXPECT_TRUE(screen().shows("Use"));
    screen().press("Use");
    EXPECT_EQ(placeNote(), "Using Kenya.");
}

TEST_F(SettingsView, SubmittingBlanksClearsAnOldNote) {
    usePlace("Xyzzyville");
    ASSERT_NE(placeNote(), "");
    usePlace("  ");
    EXPECT_EQ(placeNote(), "");
}

TEST_F(SettingsView, ARowOfTheListNamesItsRegionAndLeavesTheNote) {
    usePlace("Xyzzyville");
    const QString note = placeNote();
    QQuickItem* const list = screen().control("Where you photograph");
    ASSERT_TRUE(list);
    list->forceActiveFocus();
    screen().key(Qt::Key_Down);
    screen().key(Qt::Key_Return);
    const auto& regions = app::AppStore::rangeTable()->regions();
    EXPECT_EQ(store().assumedRegionID(), QString::fromStdString(regions[0].id));
    EXPECT_EQ(markedRegion(), QString::fromStdString(regions[0].name));
    EXPECT_EQ(placeNote(), note);
    screen().key(Qt::Key_Home);
    screen().key(Qt::Key_Space);
    EXPECT_EQ(store().assumedRegionID(), "");
}

TEST_F(SettingsView, TypingInTheListGoesToTheRegionThatBeginsSo) {
    QQuickItem* const list = screen().control("Where you photograph");
    ASSERT_TRUE(list);
    list->forceActiveFocus();
    screen().key(Qt::Key_K);
    screen().key(Qt::Key_E);
    screen().key(Qt::Key_N);
    screen().picture("settings-region-typed");
    screen().key(Qt::Key_Return);
    EXPECT_EQ(store().assumedRegionID(), "kenya");
}

TEST_F(SettingsView, ARegionOfAnOlderTableMarksNoRow) {
    store().setAssumedRegionID("gone");
    EXPECT_EQ(markedRegion(), "");
    EXPECT_TRUE(screen().shownIn("regionExplanation").join('|').startsWith("Species with no"));
}

TEST_F(SettingsView, TheCoverageCheckAnswers) {
    EXPECT_TRUE(screen().shows("Will it know your birds?"));
    EXPECT_TRUE(screen().shows(
        QString("%1 species, identified on your Mac.").arg(BirdClassifierLabels::speciesCount())));
    screen().type(coverageField, "o");
    EXPECT_EQ(screen().shownIn("coverageLine"), QStringList());
    screen().type(coverageField, "sprey");
    ASSERT_EQ(BirdClassifierLabels::search("osprey", 40).size(), 1u);
    EXPECT_EQ(screen().shownIn("coverageLine"), (QStringList{"[checkmark-circle]", "1 match"}));
    EXPECT_EQ(screen().colourOf("1 match"), accent);
    EXPECT_EQ(screen().shownIn("coverageMatches"), (QStringList{"Osprey", "Pandion haliaetus"}));
    screen().picture("settings-coverage");
    screen().type(coverageField, "zzz");
    const QString none = QString("Not among the %1 species this version knows.")
                             .arg(BirdClassifierLabels::speciesCount());
    EXPECT_EQ(screen().shownIn("coverageLine"), (QStringList{"[xmark-circle]", none}));
    EXPECT_EQ(screen().colourOf(none), warning);
    EXPECT_FALSE(screen().item("coverageMatches")->isVisible());
    screen().picture("settings-coverage-none");
}

TEST_F(SettingsView, TheKeyboardReachesEverythingInTheOrderOfReading) {
    chooseSink();
    EXPECT_EQ(screen().tabOrder().join("|").toStdString(),
              QStringList({"Done", coverageField, paste, "Off", "Confirm near-misses",
                           "Also correct identifications", placeField,
                           "Use each photo's own location", "Who made this possible"})
                  .join("|")
                  .toStdString());
}

TEST_F(SettingsView, TheKeyboardGoesBackwardsToo) {
    for (const QString& name : {QString("Who made this possible"),
                                QString("Use each photo's own location"), placeField}) {
        QTest::keyClick(&screen().window(), Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(screen().focused(), name);
    }
}

TEST_F(SettingsView, WhatBecameOfAPasteIsSaidWhereTheKeyboardIs) {
    chooseSink();
    EXPECT_EQ(accessibleDescription(screen().control(paste)), "");
    pasted("Dear all");
    EXPECT_EQ(accessibleDescription(screen().control(paste)), nothing);
}

TEST_F(SettingsView, DoneAndEscapeCloseIt) {
    store().setShowingSettings(true);
    screen().press("Done");
    EXPECT_TRUE(waitUntil([&] { return !store().showingSettings(); }));
    store().setShowingSettings(true);
    open();
    screen().key(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return !store().showingSettings(); }));
}

TEST_F(SettingsView, OpensTheCreditsOverItself) {
    EXPECT_TRUE(screen().shows(
        "Trained on openly licensed photographs contributed by naturalists worldwide."));
    screen().control("Who made this possible")->forceActiveFocus();
    screen().picture("settings-bottom");
    screen().press("Who made this possible");
    EXPECT_TRUE(screen().shows("The photographs"));
    screen().key(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return !screen().shows("The photographs"); }));
    EXPECT_TRUE(screen().shows("Settings"));
}

TEST(SettingsSheet, LiesOverTheCardsUntilItIsClosed) {
    ScreenScene screen;
    screen.resize(720, 560);
    EXPECT_FALSE(screen.isShown("sheetBody"));
    screen.store().setShowingSettings(true);
    QTest::qWait(50);
    ASSERT_TRUE(screen.isShown("sheetBody"));
    EXPECT_EQ(screen.text("sheetTitle"), "Settings");
    screen.picture("settings-over-small-window");
    QTest::keyClick(&screen.window(), Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return !screen.store().showingSettings(); }));
    EXPECT_FALSE(screen.isShown("sheetBody"));
}

TEST(SettingsSheet, OpensAnewWithoutNotes) {
    ScreenScene screen;
    fs::create_directories(screen.scene.sink());
    screen.store().setSink(screen.scene.sink());
    QGuiApplication::clipboard()->setText("Dear all");
    screen.window();
    screen.store().setShowingSettings(true);
    ASSERT_TRUE(waitUntil([&] { return screen.control(paste) != nullptr; }));
    screen.click(paste);
    ASSERT_TRUE(waitUntil([&] { return screen.text("applyNote") == nothing; }));
    screen.control(placeField)->forceActiveFocus();
    for (const char letter : std::string("xyzzy")) QTest::keyClick(&screen.window(), letter);
    QTest::keyClick(&screen.window(), Qt::Key_Return);
    ASSERT_NE(screen.text("placeNote"), "");
    QTest::keyClick(&screen.window(), Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return !screen.isShown("sheetBody"); }));
    screen.store().setShowingSettings(true);
    ASSERT_TRUE(waitUntil([&] { return screen.isShown("sheetBody"); }));
    EXPECT_EQ(screen.text("applyNote"), "");
    EXPECT_EQ(screen.text("placeNote"), "");
    EXPECT_EQ(screen.find("placeField")->property("text").toString(), "");
}

TEST(SettingsSheet, ClosesWhenTheStoreSaysSo) {
    ScreenScene screen;
    screen.store().setShowingSettings(true);
    screen.window();
    QTest::qWait(50);
    ASSERT_TRUE(screen.isShown("sheetBody"));
    screen.store().setShowingSettings(false);
    EXPECT_TRUE(waitUntil([&] { return !screen.isShown("sheetBody"); }));
}

TEST(FindMode, ShowsTheCardOfTargetSpecies) {
    ScreenScene screen;
    screen.store().setMode(app::AppStore::Mode::Find);
    screen.store().addSpecies("Dodo", "Raphus cucullatus");
    screen.store().setSpeciesQuery("osp");
    EXPECT_EQ(screen.cards(), (QStringList{"targetSpecies", "options", "preview"}));
    screen.picture("find-window");
}

}  // namespace ornivo::testing
