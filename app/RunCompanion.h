#pragma once

#include <QByteArray>
#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "app/desktop/LauncherEntry.h"
#include "app/desktop/Notifications.h"
#include "app/desktop/SleepInhibitor.h"

namespace ornivo::app {

class AppStore;
struct RunNotice;

/// Tells the desktop of a run: the machine stays awake while it works, the launcher shows how far
/// it is, and a notification tells of its end if the user is elsewhere.
class RunCompanion : public QObject {
    Q_OBJECT

public:
    struct Services {
        std::unique_ptr<Notifications> notifications;
        std::unique_ptr<LauncherEntry> launcher;
        std::unique_ptr<SleepInhibitor> inhibitor;
    };

    /// `isInFront` answers whether the user has the window before him.
    RunCompanion(AppStore& store, Services services, std::function<bool()> isInFront,
                 QObject* parent = nullptr);

Q_SIGNALS:
    /// The user has pressed the notification. `token` entitles the window to come to the front.
    void windowWanted(const QByteArray& token);

private:
    void followJob();
    void followProgress();
    void tellEnd();
    void notify(const RunNotice& notice);

    AppStore& store_;
    Services services_;
    std::function<bool()> isInFront_;
    /// As the launcher has it; absent when it shows none.
    std::optional<int> percent_;
};

}  // namespace ornivo::app
