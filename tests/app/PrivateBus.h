#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <memory>

namespace ornivo::testing {

/// A message bus of this test's own.
class PrivateBus {
public:
    /// Absent where the machine has no bus to start.
    static std::unique_ptr<PrivateBus> start();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// The program's connection, and that of what serves it.
    QDBusConnection program() const { return QDBusConnection(programName()); }
    QDBusConnection desktop() const { return QDBusConnection(desktopName()); }

private:
    PrivateBus() = default;
    static QString programName() { return QStringLiteral("test-program"); }
    static QString desktopName() { return QStringLiteral("test-desktop"); }

    QProcess daemon_;
};

}  // namespace ornivo::testing
