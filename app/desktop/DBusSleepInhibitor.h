#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <memory>
#include <optional>

#include "app/desktop/SleepInhibitor.h"

namespace ornivo::app {

/// Holds the machine awake through the desktop's portal, or where there is none through logind.
class DBusSleepInhibitor final : public QObject, public SleepInhibitor {
    Q_OBJECT

public:
    DBusSleepInhibitor(const QDBusConnection& session, const QDBusConnection& system);
    ~DBusSleepInhibitor() override;

    void hold(const QString& reason) override;
    void release() override;

private:
    /// What is held, from the asking on. Whatever comes of asking belongs to the hold that asked:
    /// if that has been released meanwhile, it goes at once.
    struct Hold {
        explicit Hold(const QDBusConnection& bus) : session(bus) {}
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

        QDBusConnection session;
        std::optional<QDBusObjectPath> request;
        QDBusUnixFileDescriptor lock;
    };

    void askPortal(const std::shared_ptr<Hold>& hold, const QString& reason);
    void askLogind(const std::shared_ptr<Hold>& hold, const QString& reason);

    QDBusConnection session_;
    QDBusConnection system_;
    std::shared_ptr<Hold> hold_;
};

}  // namespace ornivo::app
