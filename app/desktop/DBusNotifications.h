#pragma once

#include <QDBusConnection>
#include <QObject>
#include <functional>

#include "app/desktop/Notifications.h"

namespace ornivo::app {

/// Notifications by org.freedesktop.Notifications.
class DBusNotifications final : public QObject, public Notifications {
    Q_OBJECT

public:
    explicit DBusNotifications(const QDBusConnection& bus);

    void show(const QString& title, const QString& body, std::function<void()> activated) override;

private Q_SLOTS:
    void actionInvoked(uint id, const QString& action);

private:
    QDBusConnection bus_;
    /// Of the notification that stands, 0 for none.
    uint id_ = 0;
    std::function<void()> activated_;
};

}  // namespace ornivo::app
