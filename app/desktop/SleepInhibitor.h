#pragma once

#include <QString>

namespace ornivo::app {

/// Keeps the machine from suspending by itself.
class SleepInhibitor {
public:
    virtual ~SleepInhibitor() = default;

    /// From now on; `reason` is what the desktop may show the user. Called again, changes nothing.
    virtual void hold(const QString& reason) = 0;
    virtual void release() = 0;
};

}  // namespace ornivo::app
