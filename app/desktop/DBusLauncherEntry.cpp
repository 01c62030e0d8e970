#include "app/desktop/DBusLauncherEntry.h"

#include <QDBusMessage>

#include "app/AppIdentity.h"

namespace ornivo::app {

void DBusLauncherEntry::showProgress(double share) {
    send({{QStringLiteral("progress"), share}, {QStringLiteral("progress-visible"), true}});
}

void DBusLauncherEntry::hideProgress() {
    send({{QStringLiteral("progress"), 0.0}, {QStringLiteral("progress-visible"), false}});
}

void DBusLauncherEntry::send(const QVariantMap& properties) {
    if (!bus_.isConnected()) return;
    auto signal = QDBusMessage::createSignal(QStringLiteral("/org/ornivo/Ornivo"),
                                             QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                             QStringLiteral("Update"));
    signal << QStringLiteral("application://%1.desktop").arg(QLatin1String(applicationID))
           << properties;
    bus_.send(signal);
}

}  // namespace ornivo::app
