#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "app/ElementScene.h"
#include "app/StoreScene.h"
#include "identification/CallLevel.h"

namespace ornivo::testing {
namespace {

const QString accent = "#c8f060";
const QString subtext = "#8c8c8c";
const QString warning = "#f2bf40";

const QString trashNote = QString::fromUtf8(
    "Originals go to your Trash once each copy is written — recoverable from there.");

QString utf8(const char* text) {
    return QString::fromUtf8(text);
}

class OptionsCard : public ::testing::Test {
protected:
    app::AppStore& store() { return scene_.store(); }
    ElementScene& screen() {
        if (!screen_) screen_ = std::make_unique<ElementScene>("OptionsCard", store());
        return *screen_;
    }
    /// The call level whose row is marked; empty when none is.
    QString markedLevel() {
        const QStringList shown = screen().shown();
        for (const char* const title : {"Confirmed", "Most likely", "Probable"}) {
            const auto at = shown.indexOf(title);
            if (at > 0 && shown[at - 1] == "[circle-fill]") return title;
        }
        return {};
    }

private:
    StoreScene scene_;
    std::unique_ptr<ElementScene> screen_;
};

}  // namespace

TEST_F(OptionsCard, OpensOnKeepingOriginalsAndALevelOfItsOwn) {
    EXPECT_EQ(screen().shown(),
              (QStringList{"Options",
                           "[circle-fill]",
                           "Keep originals",
                           utf8("— copies files, source untouched"),
                           "[circle]",
                           "Move originals to the Trash after sorting",
                           "[square]",
                           "Rename files by species",
                           utf8("— CommonName_001.jpg"),
                           "[square]",
                           "Create date subfolders",
                           utf8("— /Species/YYYY-MM-DD/"),
                           "File a bird when the call is",
                           "[circle]",
                           "Confirmed",
                           utf8("— only what it's certain of"),
                           "[circle]",
                           "Most likely",
                           utf8("— its strong calls too"),
                           "[circle]",
                           "Probable",
                           utf8("— the widest net"),
                           "Custom",
                           "needs a 54/100 match",
                           "Stricter = fewer birds named, more sent to _Uncertain/ for you to "
                           "review. Looser = more named, more of them wrong."}));
    EXPECT_EQ(screen().colourOf("needs a 54/100 match"), accent);
    EXPECT_EQ(screen().colourOf("[circle-fill]"), accent);
    EXPECT_EQ(screen().colourOf(utf8("— the widest net")), subtext);
    screen().picture("options");
}

TEST_F(OptionsCard, TrashingOriginalsIsChosenByItsRowAndSaysWhatItMeans) {
    screen().press("Move originals to the Trash after sorting");
    EXPECT_EQ(store().options().mode, CopyMode::trashOriginal);
    EXPECT_TRUE(screen().shows(trashNote));
    EXPECT_EQ(screen().colourOf(trashNote), warning);
    EXPECT_EQ(screen().shown().mid(1, 5),
              (QStringList{"[circle]", "Keep originals", utf8("— copies files, source untouched"),
                           "[circle-fill]", "Move originals to the Trash after sorting"}));
    screen().picture("options-trash");
    screen().press("Keep originals");
    EXPECT_EQ(store().options().mode, CopyMode::keep);
    EXPECT_FALSE(screen().shows(trashNote));
}

TEST_F(OptionsCard, FindHidesTheNamingAndKeepsIt) {
    screen().press("Rename files by species");
    screen().press("Create date subfolders");
    EXPECT_TRUE(screen().shows("[checkmark-square-fill]"));
    store().setMode(app::AppStore::Mode::Find);
    EXPECT_FALSE(screen().shows("Rename files by species"));
    EXPECT_FALSE(screen().shows("Create date subfolders"));
    EXPECT_TRUE(store().options().rename);
    EXPECT_TRUE(store().options().dateSubfolders);
    store().setMode(app::AppStore::Mode::Sort);
    EXPECT_EQ(screen().shown().count("[checkmark-square-fill]"), 2);
    screen().press("Rename files by species");
    EXPECT_FALSE(store().options().rename);
    EXPECT_TRUE(store().options().dateSubfolders);
}

TEST_F(OptionsCard, TrashingOriginalsIsOfferedInFindToo) {
    store().setMode(app::AppStore::Mode::Find);
    screen().press("Move originals to the Trash after sorting");
    EXPECT_EQ(store().options().mode, CopyMode::trashOriginal);
    EXPECT_TRUE(screen().shows(trashNote));
}

TEST_F(OptionsCard, ALevelIsChosenByItsRow) {
    struct Case {
        const char* title;
        CallLevel level;
        const char* match;
        QString cautionColour;
    };
    for (const Case& row :
         {Case{"Confirmed", CallLevel::confirmed, "needs a 60/100 match", ""},
          Case{"Most likely", CallLevel::probable, "needs a 45/100 match", subtext},
          Case{"Probable", CallLevel::possible, "needs a 30/100 match", warning}}) {
        screen().press(row.title);
        EXPECT_EQ(store().confidence(), slider(row.level)) << row.title;
        EXPECT_EQ(markedLevel(), row.title);
        EXPECT_TRUE(screen().shows("Fine tune"));
        EXPECT_TRUE(screen().shows(row.match));
        const auto words = caution(row.level);
        EXPECT_EQ(screen().shownIn("caution"),
                  words ? QStringList(QString::fromStdString(*words)) : QStringList());
        if (words) {
            EXPECT_EQ(screen().colourOf(QString::fromStdString(*words)), row.cautionColour);
        }
        screen().picture(QString("options-") + row.title);
    }
}

TEST_F(OptionsCard, TheSliderSelectsALevelOnlyAtItsPosition) {
    QQuickItem* const slider = screen().control("Fine tune the call threshold");
    ASSERT_TRUE(slider);
    slider->forceActiveFocus();
    store().setConfidence(47);
    EXPECT_EQ(markedLevel(), "");
    EXPECT_TRUE(screen().shows("Custom"));
    screen().key(Qt::Key_Right);
    EXPECT_EQ(store().confidence(), 48);
    EXPECT_EQ(markedLevel(), "Confirmed");
    screen().key(Qt::Key_Right);
    EXPECT_EQ(store().confidence(), 49);
    EXPECT_EQ(markedLevel(), "");
    EXPECT_TRUE(screen().shows("needs a 61/100 match"));
    screen().key(Qt::Key_Home);
    EXPECT_EQ(store().confidence(), 0);
    EXPECT_EQ(markedLevel(), "Probable");
    screen().key(Qt::Key_End);
    EXPECT_EQ(store().confidence(), 100);
    EXPECT_TRUE(screen().shows("needs a 95/100 match"));
}

TEST_F(OptionsCard, TheSliderFollowsTheStore) {
    QQuickItem* const slider = screen().control("Fine tune the call threshold");
    ASSERT_TRUE(slider);
    EXPECT_EQ(slider->property("value").toInt(), 38);
    slider->forceActiveFocus();
    screen().key(Qt::Key_Left);
    store().setConfidence(24);
    EXPECT_EQ(slider->property("value").toInt(), 24);
    EXPECT_EQ(accessibleDescription(slider), "needs a match of 45 out of 100");
}

TEST_F(OptionsCard, TheSliderFollowsTheStoreAlsoAfterItsEnds) {
    QQuickItem* const slider = screen().control("Fine tune the call threshold");
    ASSERT_TRUE(slider);
    for (const Qt::Key end : {Qt::Key_Home, Qt::Key_End}) {
        slider->forceActiveFocus();
        screen().key(end);
        EXPECT_EQ(slider->property("value").toInt(), store().confidence());
        screen().press("Confirmed");
        EXPECT_EQ(store().confidence(), 48);
        EXPECT_EQ(slider->property("value").toInt(), 48);
        store().setConfidence(70);
        EXPECT_EQ(slider->property("value").toInt(), 70);
    }
}

TEST_F(OptionsCard, DraggedOnto48TheSliderSelectsConfirmed) {
    QQuickItem* const slider = screen().control("Fine tune the call threshold");
    ASSERT_TRUE(slider);
    auto* const handle = slider->property("handle").value<QQuickItem*>();
    const auto middleAt = [&](int value) {
        const qreal way = slider->width() - handle->width();
        return slider->mapToScene({handle->width() / 2 + way * value / 100, slider->height() / 2})
            .toPoint();
    };
    ASSERT_EQ(store().confidence(), 38);
    QTest::mousePress(&screen().window(), Qt::LeftButton, {}, middleAt(38));
    for (int value = 40; value <= 48; value += 2) {
        QTest::mouseMove(&screen().window(), middleAt(value));
        EXPECT_EQ(markedLevel(), value == 48 ? "Confirmed" : "") << value;
    }
    QTest::mouseRelease(&screen().window(), Qt::LeftButton, {}, middleAt(48));
    EXPECT_EQ(store().confidence(), 48);
    EXPECT_EQ(markedLevel(), "Confirmed");
    EXPECT_TRUE(screen().shows("Fine tune"));
}

TEST_F(OptionsCard, AScreenReaderMovesTheThresholdToo) {
    QQuickItem* const slider = screen().control("Fine tune the call threshold");
    ASSERT_TRUE(slider);
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(slider);
    spoken->valueInterface()->setCurrentValue(48);
    EXPECT_EQ(store().confidence(), 48);
    EXPECT_EQ(markedLevel(), "Confirmed");
    spoken->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(store().confidence(), 49);
    spoken->valueInterface()->setCurrentValue(48.6);
    EXPECT_EQ(spoken->valueInterface()->currentValue().toDouble(), 49);
    store().setConfidence(24);
    EXPECT_EQ(spoken->valueInterface()->currentValue().toDouble(), 24);
}

TEST_F(OptionsCard, TheSliderBeginsAndEndsWhereTheTextsDo) {
    QQuickItem* const slider = screen().control("Fine tune the call threshold");
    ASSERT_TRUE(slider);
    auto* const track = slider->property("background").value<QQuickItem*>();
    EXPECT_EQ(track->mapToScene({0, 0}).x(), screen().item("tuning")->mapToScene({0, 0}).x());
    EXPECT_EQ(track->width(), slider->width());
}

TEST_F(OptionsCard, TheKeyboardReachesEverythingInTheOrderOfReading) {
    EXPECT_EQ(screen().tabOrder(),
              (QStringList{"Keep originals", "Move originals to the Trash after sorting",
                           "Rename files by species", "Create date subfolders", "Confirmed",
                           "Most likely", "Probable", "Fine tune the call threshold"}));
    screen().key(Qt::Key_Tab);
    screen().key(Qt::Key_Return);
    EXPECT_EQ(store().options().mode, CopyMode::trashOriginal);
    EXPECT_EQ(screen().focused(), "Move originals to the Trash after sorting");
}

}  // namespace ornivo::testing
