#include <gtest/gtest.h>

#include <QGuiApplication>

#include "support/TempFolder.h"

/// The tests of the window need no screen, and leave the user's preferences and session alone.
int main(int argc, char** argv) {
    const ornivo::testing::TempFolder home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_QPA_PLATFORMTHEME", "generic");
    qputenv("XDG_CONFIG_HOME", home.path().c_str());
    qputenv("XDG_RUNTIME_DIR", home.path().c_str());
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DISPLAY");
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
