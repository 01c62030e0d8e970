#pragma once

#include <QString>
#include <functional>

namespace ornivo::app {

/// The desktop's notifications. A desktop without them is no failure.
class Notifications {
public:
    virtual ~Notifications() = default;

    /// Shows a notification in place of the last one. `activated` is called, on the main thread,
    /// if the user presses it.
    virtual void show(const QString& title, const QString& body,
                      std::function<void()> activated) = 0;
};

}  // namespace ornivo::app
