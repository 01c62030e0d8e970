#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>

#include "app/desktop/SoftwareCentre.h"

namespace ornivo::app {

/// What "Check for Updates…" stands on: packages are updated by the system, so the user is taken to
/// this program's page in the software centre.
class UpdaterController : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one updater, made by the program.")

    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY changed)

public:
    /// The software centre outlives the controller.
    explicit UpdaterController(SoftwareCentre& centre, QObject* parent = nullptr)
        : QObject(parent), centre_(centre) {}

    /// As it was at the last `refresh`; false before the first.
    bool canCheckForUpdates() const { return canCheck_; }

    /// Looks anew whether there is a software centre; to be called when the menu opens.
    Q_INVOKABLE void refresh();
    Q_INVOKABLE void checkForUpdates();

Q_SIGNALS:
    void changed();

private:
    SoftwareCentre& centre_;
    bool canCheck_ = false;
};

}  // namespace ornivo::app
