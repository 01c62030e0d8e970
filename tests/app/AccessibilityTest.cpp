#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "app/ElementScene.h"
#include "app/StoreScene.h"

namespace ornivo::testing {
namespace {

/// What a screen reader is told of an element: its role and name, in brackets what it adds, and
/// whether it holds.
QString spoken(QAccessibleInterface& element) {
    const QAccessible::State state = element.state();
    QString line = QString::fromLatin1(qAccessibleRoleString(element.role())) + ": " +
                   element.text(QAccessible::Name);
    if (const QString more = element.text(QAccessible::Description); !more.isEmpty()) {
        line += " (" + more + ')';
    }
    if (state.checkable) line += state.checked ? " [x]" : " [ ]";
    return line;
}

/// Everything that a window tells, in the order of reading.
QStringList told(const ElementScene& scene) {
    QStringList lines;
    const QAccessibleInterface* const window =
        QAccessible::queryAccessibleInterface(&scene.window());
    for (int i = 0; i < window->childCount(); ++i) lines << spoken(*window->child(i));
    return lines;
}

}  // namespace

TEST(Accessibility, EachControlIsToldForWhatItIs) {
    struct {
        const char* element;
        QString told;
    } const rows[] = {
        {"SecondaryButton { text: \"Stop\"; description: \"Ends it\" }", "Button: Stop (Ends it)"},
        {"IconButton { symbol: \"xmark\"; description: \"Remove\" }", "Button: Remove"},
        {"RadioRow { text: \"Off\"; hint: \"no bursts\"; on: true }",
         "RadioButton: Off (no bursts) [x]"},
        {"RadioRow { text: \"Off\" }", "RadioButton: Off [ ]"},
        {"CheckRow { text: \"Rename\"; on: true }", "CheckBox: Rename [x]"},
        {"CheckRow { text: \"Rename\" }", "CheckBox: Rename [ ]"},
        {"SpeciesRow { width: 300; commonName: \"Osprey\"; scientificName: \"Pandion\"; index: 0 }",
         "ListItem: Osprey (Pandion)"},
        {"RegionRow { width: 300; label: \"Kenya\"; hint: \"Kenya\"; index: 0; chosen: true; "
         "isCurrent: false }",
         "RadioButton: Kenya (Kenya) [x]"},
        {"LinkRow { width: 300; height: 30; "
         "row: ({name: \"GBIF\", detail: \"data\", url: \"https://example.org\"}) }",
         "Link: GBIF (data)"},
        {"LinkRow { width: 300; height: 30; row: ({name: \"GBIF\", detail: \"data\", url: \"\"}) }",
         "StaticText: GBIF (data)"},
    };
    for (const auto& row : rows) {
        const ElementScene scene(QString::fromUtf8(row.element), {});
        EXPECT_EQ(told(scene).join('|').toStdString(), row.told.toStdString()) << row.element;
    }
}

TEST(Accessibility, WhatIsDisabledIsSaidToBe) {
    const ElementScene plain("SecondaryButton { text: \"Stop\"; enabled: false }", {});
    EXPECT_EQ(told(plain), QStringList("Button: Stop (Not available now)"));
    const ElementScene keyed("SecondaryButton { text: \"Sort\"; keys: \"Ctrl+1\"; enabled: false }",
                             {});
    EXPECT_EQ(told(keyed),
              QStringList(QString::fromUtf8("Button: Sort (Sort (Ctrl+1) — not available now)")));
}

TEST(Accessibility, AChoiceIsMadeThroughAScreenReaderToo) {
    ElementScene scene("CheckRow { text: \"Rename\"; onFlipped: isOn => on = isOn }", {});
    QAccessibleInterface* const row =
        QAccessible::queryAccessibleInterface(scene.control("Rename"));
    row->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(told(scene), QStringList("CheckBox: Rename [x]"));
}

TEST(Accessibility, AButtonTellsItsKeysAndSoDoesItsTip) {
    StoreScene scene;
    ElementScene screen("ModeToggle", scene.store());
    EXPECT_EQ(accessibleDescription(screen.control("Sort All")), "Sort All (Ctrl+1)");
    EXPECT_EQ(accessibleDescription(screen.control("Find Species")), "Find Species (Ctrl+2)");
    screen.key(Qt::Key_Tab);
    EXPECT_TRUE(waitUntil([&] { return screen.shows("Sort All (Ctrl+1)"); }));
}

}  // namespace ornivo::testing
