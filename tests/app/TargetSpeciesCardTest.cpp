#include <gtest/gtest.h>

#include <QTest>

#include "app/ElementScene.h"
#include "app/StoreScene.h"
#include "identification/BirdClassifierLabels.h"
#include "identification/TargetSpecies.h"

namespace ornivo::testing {
namespace {

const QString accent = "#c8f060";
const QString warning = "#f2bf40";

QString placeholder() {
    return QString("Name one of %1 species").arg(BirdClassifierLabels::speciesCount());
}

QString unknownMessage(const QString& name) {
    return name + QString::fromUtf8(
                      " is not one of the %1 species this build can recognise — a "
                      "search for it will find nothing.")
                      .arg(BirdClassifierLabels::speciesCount());
}

class TargetSpeciesCard : public ::testing::Test {
protected:
    TargetSpeciesCard() { scene_.store().setMode(app::AppStore::Mode::Find); }

    app::AppStore& store() { return scene_.store(); }
    ElementScene& screen() {
        if (!screen_) screen_ = std::make_unique<ElementScene>("TargetSpeciesCard", store());
        return *screen_;
    }
    void type(const QString& text) { screen().type(placeholder(), text); }
    BirdSpecies first(const char* query) {
        const auto match = BirdClassifierLabels::search(query, 1).at(0);
        return {match.commonName, match.scientificName};
    }
    bool canSetTarget() { return screen().control("Set Target")->isEnabled(); }

private:
    StoreScene scene_;
    std::unique_ptr<ElementScene> screen_;
};

}  // namespace

TEST_F(TargetSpeciesCard, IsAFieldAloneAtFirst) {
    EXPECT_EQ(screen().shown(), (QStringList{"Target Species", placeholder(), "Set Target"}));
    EXPECT_FALSE(canSetTarget());
    screen().picture("find-empty");
}

TEST_F(TargetSpeciesCard, BlanksAreNoTarget) {
    type("  ");
    EXPECT_EQ(store().speciesQuery(), "  ");
    EXPECT_FALSE(canSetTarget());
    EXPECT_EQ(screen().shownIn("suggestions"), QStringList());
    type("x");
    EXPECT_TRUE(canSetTarget());
}

TEST_F(TargetSpeciesCard, SuggestsWhatMayBeMeant) {
    type("ro");
    QStringList expected;
    for (const auto& match : BirdClassifierLabels::search("ro", 60)) {
        expected << QString::fromStdString(match.commonName)
                 << QString::fromStdString(match.scientificName);
    }
    const QStringList shown = screen().shownIn("suggestions");
    ASSERT_GE(shown.size(), 8);
    EXPECT_EQ(shown, expected.first(shown.size()));
    EXPECT_LE(screen().item("suggestions")->height(), 148);
    EXPECT_EQ(screen().item("suggestions")->property("count").toInt(), expected.size() / 2);
    screen().picture("find-suggestions");
}

TEST_F(TargetSpeciesCard, NothingIsSuggestedForWhatIsntFound) {
    type("zzzz");
    EXPECT_FALSE(screen().item("suggestions")->isVisible());
    EXPECT_TRUE(canSetTarget());
}

TEST_F(TargetSpeciesCard, APressedSuggestionBecomesATarget) {
    type("osprey");
    const BirdSpecies osprey = first("osprey");
    screen().press(QString::fromStdString(osprey.commonName));
    EXPECT_EQ(store().selectedSpeciesList(), std::vector<BirdSpecies>{osprey});
    EXPECT_EQ(store().speciesQuery(), "");
    EXPECT_EQ(screen().shown(), (QStringList{"Target Species", "[checkmark-circle]",
                                             QString::fromStdString(osprey.commonName),
                                             QString::fromStdString(osprey.scientificName),
                                             "[xmark]", placeholder(), "Set Target"}));
    EXPECT_EQ(screen().colourOf("[checkmark-circle]"), accent);
    EXPECT_EQ(screen().focused(), placeholder());
}

TEST_F(TargetSpeciesCard, ArrowsAndReturnPickASuggestion) {
    type("ro");
    const auto matches = BirdClassifierLabels::search("ro", 60);
    screen().key(Qt::Key_Down);
    EXPECT_EQ(accessibleDescription(screen().control(placeholder())),
              QString::fromStdString(matches[0].commonName));
    screen().key(Qt::Key_Down);
    screen().key(Qt::Key_Down);
    screen().key(Qt::Key_Up);
    screen().picture("find-suggestion-reached");
    screen().key(Qt::Key_Return);
    EXPECT_EQ(store().selectedSpeciesList(),
              (std::vector<BirdSpecies>{{matches[1].commonName, matches[1].scientificName}}));
    EXPECT_EQ(store().speciesQuery(), "");
}

TEST_F(TargetSpeciesCard, EscapeGoesBackStepByStep) {
    type("ro");
    screen().key(Qt::Key_Down);
    screen().key(Qt::Key_Escape);
    EXPECT_EQ(screen().item("suggestions")->property("currentIndex").toInt(), -1);
    EXPECT_EQ(store().speciesQuery(), "ro");
    screen().key(Qt::Key_Escape);
    EXPECT_EQ(store().speciesQuery(), "");
    EXPECT_FALSE(screen().item("suggestions")->isVisible());
}

TEST_F(TargetSpeciesCard, TheSuggestionsCanBeReachedByTabToo) {
    type("ro");
    screen().key(Qt::Key_Tab);
    EXPECT_EQ(screen().focused(), "Set Target");
    screen().key(Qt::Key_Tab);
    const auto matches = BirdClassifierLabels::search("ro", 60);
    EXPECT_EQ(screen().focused(), QString::fromStdString(matches.front().commonName));
    screen().key(Qt::Key_End);
    screen().key(Qt::Key_Return);
    EXPECT_EQ(store().selectedSpeciesList().at(0).commonName, matches.back().commonName);
}

TEST_F(TargetSpeciesCard, ASuggestionThatTabCameByIsNotWhatReturnSubmits) {
    type("ro");
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab}) {
        screen().key(key);
    }
    ASSERT_EQ(screen().focused(), placeholder());
    screen().key(Qt::Key_Return);
    EXPECT_EQ(store().selectedSpeciesList(),
              std::vector<BirdSpecies>{TargetSpecies::resolved(TargetSpecies::parse("ro"))});
}

TEST_F(TargetSpeciesCard, ALineEndsWithWhatRemovesIt) {
    store().addSpecies("Dodo", "");
    const auto end = [](const QQuickItem* item) {
        return item->mapToScene({item->width(), 0}).x();
    };
    const QQuickItem* glyph = nullptr;
    for (const QQuickItem* child : screen().control("Remove Dodo")->childItems()) {
        if (child->property("symbol").toString() == "xmark") glyph = child;
    }
    ASSERT_TRUE(glyph);
    EXPECT_NEAR(end(glyph), end(screen().control("Set Target")), 1);
}

TEST_F(TargetSpeciesCard, TypingOnForgetsTheSuggestionReached) {
    type("ro");
    screen().key(Qt::Key_Down);
    type("bi");
    EXPECT_EQ(screen().item("suggestions")->property("currentIndex").toInt(), -1);
}

TEST_F(TargetSpeciesCard, ReturnAndTheButtonTakeWhatWasTyped) {
    const BirdSpecies osprey = first("osprey");
    type(QString::fromStdString(osprey.commonName).toLower());
    screen().key(Qt::Key_Return);
    EXPECT_EQ(store().selectedSpeciesList(), std::vector<BirdSpecies>{osprey});
    type("Dodo");
    screen().press("Set Target");
    EXPECT_EQ(store().selectedSpeciesList().at(1), (BirdSpecies{"Dodo", ""}));
    EXPECT_EQ(screen().focused(), placeholder());
}

TEST_F(TargetSpeciesCard, AnUnrecognisedSpeciesIsMarkedAndNamed) {
    type("Dodo (Raphus cucullatus)");
    screen().key(Qt::Key_Return);
    EXPECT_EQ(screen().shown(), (QStringList{"Target Species", "[warning-triangle]", "Dodo",
                                             "Raphus cucullatus", "[xmark]", "[warning-triangle]",
                                             unknownMessage("Dodo"), placeholder(), "Set Target"}));
    EXPECT_EQ(screen().colourOf("[warning-triangle]"), warning);
    EXPECT_EQ(screen().colourOf(unknownMessage("Dodo")), warning);
    store().addSpecies(QString::fromStdString(first("osprey").commonName), {});
    screen().picture("find-unrecognised");
}

TEST_F(TargetSpeciesCard, RemovingTheLastSpeciesHidesTheRowsAndTheMessage) {
    store().addSpecies("Dodo", "");
    store().addSpecies("", "Pinguinus impennis");
    screen().press("Remove Dodo");
    EXPECT_EQ(store().selectedSpeciesList().size(), 1u);
    EXPECT_TRUE(screen().shows(unknownMessage("Pinguinus impennis")));
    screen().press("Remove Pinguinus impennis");
    EXPECT_EQ(screen().shown(), (QStringList{"Target Species", placeholder(), "Set Target"}));
}

TEST_F(TargetSpeciesCard, TheKeyboardStaysAtARowThatComesAfterARemovedOne) {
    store().addSpecies("Dodo", "");
    store().addSpecies("Moa", "");
    EXPECT_EQ(screen().tabOrder(), (QStringList{"Remove Dodo", "Remove Moa", placeholder()}));
    screen().key(Qt::Key_Return);
    QTest::qWait(1);
    EXPECT_EQ(store().selectedSpeciesList(), (std::vector<BirdSpecies>{{"Moa", ""}}));
    EXPECT_EQ(screen().focused(), "Remove Moa");
}

}  // namespace ornivo::testing
