#include "app/OrnivoApp.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QThreadPool>

#include "app/DeferredIdentifier.h"
#include "app/MainWindow.h"
#include "app/desktop/DBusFileManager.h"
#include "app/desktop/DBusLauncherEntry.h"
#include "app/desktop/DBusNotifications.h"
#include "app/desktop/DBusSleepInhibitor.h"
#include "identification/BirdIdentifierProvider.h"
#include "identification/SeasonTable.h"
#include "platform/Resources.h"

namespace ornivo::app {
namespace {

/// The first screen that reads the tables shouldn't have to wait for them.
void loadTables() {
    QThreadPool::globalInstance()->start([] {
        AppStore::rangeTable();
        AppStore::gazetteer();
    });
}

AppServices servicesWith(QSettings& preferences) {
    // What another file of settings says would come back when the user takes his choice back.
    preferences.setFallbacksEnabled(false);
    AppServices services;
    services.identifier = bundledIdentifier();
    services.preferences = &preferences;
    return services;
}

}  // namespace

std::shared_ptr<BirdIdentifying> bundledIdentifier() {
    const ConfidencePolicy policy;
    return std::make_shared<DeferredIdentifier>(policy, [policy] {
        return BirdIdentifierProvider::make(policy,
                                            SeasonTable::bundledCombinedPrior(std::nullopt));
    });
}

OrnivoApp::OrnivoApp()
    : preferences_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("ornivo"),
                   QStringLiteral("ornivo")),
      store_(std::make_unique<AppStore>(servicesWith(preferences_))),
      updater_(softwareCentre_),
      fileManager_(std::make_unique<DBusFileManager>(QDBusConnection::sessionBus())),
      desktop_(*fileManager_),
      companion_(std::make_unique<RunCompanion>(*store_, desktopServices(), [] {
          return QGuiApplication::applicationState() == Qt::ApplicationActive;
      })) {
    connect(companion_.get(), &RunCompanion::windowWanted, this, &OrnivoApp::raise);
    connect(this, &OrnivoApp::shown, &loadTables);
}

OrnivoApp::~OrnivoApp() {
    close();
}

RunCompanion::Services OrnivoApp::desktopServices() const {
    const auto session = QDBusConnection::sessionBus();
    return {std::make_unique<DBusNotifications>(session),
            std::make_unique<DBusLauncherEntry>(session),
            std::make_unique<DBusSleepInhibitor>(session, QDBusConnection::systemBus())};
}

bool OrnivoApp::open(const std::vector<std::filesystem::path>& folders) {
    // Without its data the program is none; better to say so now than at the first run.
    Resources::bundle();
    window_ = showMainWindow(qml_, *store_, updater_, desktop_);
    if (!window_) return false;
    connect(window_, &QQuickWindow::frameSwapped, this, &OrnivoApp::shown,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    store_->open(folders);
    return true;
}

void OrnivoApp::raise(const QByteArray& token) {
    if (!window_) return;
    if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token);
    if (window_->visibility() == QWindow::Minimized) window_->showNormal();
    window_->raise();
    window_->requestActivate();
}

void OrnivoApp::close() {
    store_->close();
    preferences_.sync();
}

}  // namespace ornivo::app
