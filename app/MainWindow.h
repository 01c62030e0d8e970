#pragma once

class QQmlApplicationEngine;
class QQuickWindow;

namespace ornivo::app {

class AppStore;
class Desktop;
class UpdaterController;

/// Shows the window around the store. It belongs to the engine; what it shows outlives that. Null
/// if the window can't be made; the engine's warnings say why.
QQuickWindow* showMainWindow(QQmlApplicationEngine& qml, AppStore& store,
                             UpdaterController& updater, Desktop& desktop);

}  // namespace ornivo::app
