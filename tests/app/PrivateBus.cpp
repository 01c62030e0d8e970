#include "app/PrivateBus.h"

#include <QStandardPaths>

namespace ornivo::testing {

std::unique_ptr<PrivateBus> PrivateBus::start() {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
    if (program.isEmpty()) return nullptr;
    auto bus = std::unique_ptr<PrivateBus>(new PrivateBus);
    bus->daemon_.start(program, {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                 QStringLiteral("--print-address")});
    if (!bus->daemon_.waitForReadyRead()) return nullptr;
    const QString address = QString::fromUtf8(bus->daemon_.readLine()).trimmed();
    for (const QString& name : {programName(), desktopName()}) {
        if (!QDBusConnection::connectToBus(address, name).isConnected()) return nullptr;
    }
    return bus;
}

PrivateBus::~PrivateBus() {
    for (const QString& name : {programName(), desktopName()}) {
        QDBusConnection::disconnectFromBus(name);
    }
    daemon_.terminate();
    daemon_.waitForFinished();
}

}  // namespace ornivo::testing
