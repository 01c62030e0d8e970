#include "app/desktop/MotionPreference.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

TEST(MotionPreference, ReadsWhatEachDesktopKeeps) {
    struct {
        const char* group;
        const char* key;
        QVariant value;
        std::optional<bool> isReduced;
    } const rows[] = {
        {"org.freedesktop.appearance", "reduced-motion", 1U, true},
        {"org.freedesktop.appearance", "reduced-motion", 0U, false},
        {"org.gnome.desktop.interface", "enable-animations", false, true},
        {"org.gnome.desktop.interface", "enable-animations", true, false},
        {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", "0", true},
        {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", "0.5", false},
        {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", "fast", std::nullopt},
        {"org.gnome.desktop.interface", "gtk-theme", "0", std::nullopt},
        {"org.freedesktop.appearance", "color-scheme", 1U, std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(MotionPreference::reading(row.group, row.key, row.value), row.isReduced)
            << row.group << ' ' << row.key;
    }
}

TEST(MotionPreference, WithoutADesktopThingsMove) {
    EXPECT_FALSE(MotionPreference().reduced());
}

}  // namespace
}  // namespace ornivo::app
