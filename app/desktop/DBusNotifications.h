#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QObject>

#include "app/desktop/Notifications.h"

namespace ornivo::app {

/// Notifications by org.freedesktop.Notifications.
class DBusNotifications final : public QObject, public Notifications {
    Q_OBJECT

public:
    explicit DBusNotifications(const QDBusConnection& bus);

    void show(const QString& title, const QString& body, Activated activated) override;

private Q_SLOTS:
    /// Comes before the action that it is for.
    void activationToken(uint id, const QString& token);
    void actionInvoked(uint id, const QString& action);

private:
    QDBusConnection bus_;
    /// Of the notification that stands, 0 for none.
    uint id_ = 0;
    QByteArray token_;
    Activated activated_;
};

}  // namespace ornivo::app
