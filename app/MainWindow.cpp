#include "app/MainWindow.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QVariant>

#include "app/AppStore.h"
#include "app/Desktop.h"
#include "app/UpdaterController.h"

/// Made by Qt's build tools from the types marked for QML.
extern void qml_register_types_Ornivo();

namespace ornivo::app {

QQuickWindow* showMainWindow(QQmlApplicationEngine& qml, AppStore& store,
                             UpdaterController& updater, Desktop& desktop) {
    // Named, so that the linker keeps what registers the types when QML first imports them.
    [[maybe_unused]] void (*const volatile types)() = &qml_register_types_Ornivo;
    qml.setInitialProperties({{QStringLiteral("store"), QVariant::fromValue(&store)},
                              {QStringLiteral("updater"), QVariant::fromValue(&updater)},
                              {QStringLiteral("desktop"), QVariant::fromValue(&desktop)}});
    qml.load(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Ornivo/Main.qml")));
    const auto roots = qml.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.first());
}

}  // namespace ornivo::app
