#pragma once

#include <QDBusConnection>
#include <QVariantMap>

#include "app/desktop/LauncherEntry.h"

namespace ornivo::app {

/// Progress on the launcher by com.canonical.Unity.LauncherEntry, which the common docks listen to.
class DBusLauncherEntry final : public LauncherEntry {
public:
    explicit DBusLauncherEntry(const QDBusConnection& bus) : bus_(bus) {}

    void showProgress(double share) override;
    void hideProgress() override;

private:
    void send(const QVariantMap& properties);

    QDBusConnection bus_;
};

}  // namespace ornivo::app
