#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

namespace ornivo::app {

/// The desktop's notifications. A desktop without them is no failure.
class Notifications {
public:
    virtual ~Notifications() = default;

    /// `token` is what entitles a window to come to the front; empty where the desktop gives none.
    using Activated = std::function<void(const QByteArray& token)>;

    /// Shows a notification in place of the last one. `activated` is called, on the main thread,
    /// if the user presses it.
    virtual void show(const QString& title, const QString& body, Activated activated) = 0;
};

}  // namespace ornivo::app
