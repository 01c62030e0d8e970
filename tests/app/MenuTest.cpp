#include <gtest/gtest.h>

#include <QTest>

#include "app/AppWindow.h"
#include "app/StoreScene.h"

namespace ornivo::testing {
namespace {

class Menu : public ::testing::Test {
protected:
    bool isOpen() { return !window_.texts("menu").isEmpty(); }
    void open() {
        window_.key(Qt::Key_F10);
        ASSERT_TRUE(waitUntil([&] { return isOpen(); }));
    }
    void choose(int row) {
        open();
        for (int i = 0; i <= row; ++i) window_.key(Qt::Key_Down);
        window_.key(Qt::Key_Return);
        EXPECT_TRUE(waitUntil([&] { return !isOpen(); }));
    }

    StoreScene scene_;
    AppWindow window_{scene_.store()};
};

}  // namespace

TEST_F(Menu, IsOpenedByItsKeys) {
    open();
    EXPECT_EQ(window_.texts("menu"),
              (QStringList{"About", QString::fromUtf8("Check for Updates…"),
                           QString::fromUtf8("Settings…"), "Ctrl+,", "Quit", "Ctrl+Q"}));
    if (const auto folder = qEnvironmentVariable("ORNIVO_PICTURES"); !folder.isEmpty()) {
        window_.key(Qt::Key_Down);
        QTest::qWait(400);
        EXPECT_TRUE(window_.window().grabWindow().save(folder + "/menu.png"));
    }
    window_.key(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return !isOpen(); }));
    window_.key(Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([&] { return isOpen(); }));
}

TEST_F(Menu, TellsAboutTheProgram) {
    choose(0);
    EXPECT_TRUE(waitUntil([&] {
        return window_.shows(
            "Birds are identified on this machine; no photograph leaves it.\n"
            "Free software under the GNU General Public License, version 3 or later.");
    }));
    if (const auto folder = qEnvironmentVariable("ORNIVO_PICTURES"); !folder.isEmpty()) {
        QTest::qWait(400);
        EXPECT_TRUE(window_.window().grabWindow().save(folder + "/about.png"));
    }
    window_.key(Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return !window_.shows("Close"); }));
}

TEST_F(Menu, ChecksForUpdatesOnlyWhereThereIsAWay) {
    const auto entry = [&] {
        return QAccessible::queryAccessibleInterface(window_.menuEntry("Check for Updates…"));
    };
    open();
    EXPECT_FALSE(window_.menuEntry("Check for Updates…")->isEnabled());
    EXPECT_EQ(entry()->text(QAccessible::Description), "Not available now");
    EXPECT_EQ(entry()->role(), QAccessible::MenuItem);
    window_.key(Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return !isOpen(); }));
    window_.centre.isThere = true;
    open();
    EXPECT_TRUE(window_.menuEntry("Check for Updates…")->isEnabled());
    EXPECT_EQ(entry()->text(QAccessible::Description), "");
    window_.key(Qt::Key_Down);
    window_.key(Qt::Key_Down);
    window_.key(Qt::Key_Return);
    EXPECT_EQ(window_.centre.pages, 1);
}

TEST_F(Menu, OpensTheSettings) {
    window_.centre.isThere = true;
    choose(2);
    EXPECT_TRUE(scene_.store().showingSettings());
}

}  // namespace ornivo::testing
