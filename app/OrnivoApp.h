#pragma once

#include <QObject>
#include <QQmlApplicationEngine>
#include <QSettings>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "app/AppStore.h"
#include "app/Desktop.h"
#include "app/RunCompanion.h"
#include "app/UpdaterController.h"
#include "app/desktop/AppStreamSoftwareCentre.h"

class QQuickWindow;

namespace ornivo::app {

/// The entry object: makes the store, the updater and the window, in this order, and keeps them for
/// the life of the process. A QGuiApplication stands already.
class OrnivoApp : public QObject {
    Q_OBJECT

public:
    OrnivoApp();
    ~OrnivoApp() override;

    AppStore& store() { return *store_; }

    /// Shows the window. Answers false if it can't be made.
    bool open(const std::vector<std::filesystem::path>& folders);
    /// Brings the window to the front; `token` entitles it to, where the desktop asks for that.
    void raise(const QByteArray& token = {});
    /// Ends the run under way at the next file, and sees that nothing chosen is lost.
    void close();

Q_SIGNALS:
    /// The first picture of the window is on the screen.
    void shown();

private:
    RunCompanion::Services desktopServices() const;

    QSettings preferences_;
    std::unique_ptr<AppStore> store_;
    AppStreamSoftwareCentre softwareCentre_;
    UpdaterController updater_;
    std::unique_ptr<FileManager> fileManager_;
    Desktop desktop_;
    std::unique_ptr<RunCompanion> companion_;
    QQmlApplicationEngine qml_;
    /// The engine's; null before it is open.
    QQuickWindow* window_ = nullptr;
};

/// The identifier that ships with the program, being made.
std::shared_ptr<BirdIdentifying> bundledIdentifier();

}  // namespace ornivo::app
