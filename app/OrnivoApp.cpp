#include "app/OrnivoApp.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QVariantMap>

#include "app/DeferredIdentifier.h"
#include "app/desktop/DBusFileManager.h"
#include "app/desktop/DBusLauncherEntry.h"
#include "app/desktop/DBusNotifications.h"
#include "app/desktop/DBusSleepInhibitor.h"
#include "identification/BirdIdentifierProvider.h"
#include "identification/SeasonTable.h"
#include "platform/Resources.h"

/// Made by Qt's build tools from the types marked for QML.
extern void qml_register_types_Ornivo();

namespace ornivo::app {
namespace {

AppServices servicesWith(QSettings& preferences) {
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
    connect(companion_.get(), &RunCompanion::windowWanted, this, [this] { raise(); });
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
    // Named, so that the linker keeps what registers the types when QML first imports them.
    [[maybe_unused]] void (*const volatile types)() = &qml_register_types_Ornivo;
    qml_.setInitialProperties({{QStringLiteral("store"), QVariant::fromValue(store_.get())},
                               {QStringLiteral("updater"), QVariant::fromValue(&updater_)},
                               {QStringLiteral("desktop"), QVariant::fromValue(&desktop_)}});
    qml_.load(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Ornivo/Main.qml")));
    if (!window()) return false;
    connect(window(), &QQuickWindow::frameSwapped, this, &OrnivoApp::shown,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    store_->open(folders);
    return true;
}

void OrnivoApp::raise(const QByteArray& token) {
    if (!window()) return;
    if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token);
    if (window()->visibility() == QWindow::Minimized) window()->showNormal();
    window()->raise();
    window()->requestActivate();
}

void OrnivoApp::close() {
    store_->close();
    preferences_.sync();
}

QQuickWindow* OrnivoApp::window() const {
    const auto roots = qml_.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.first());
}

}  // namespace ornivo::app
