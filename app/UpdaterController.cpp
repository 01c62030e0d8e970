#include "app/UpdaterController.h"

namespace ornivo::app {

void UpdaterController::refresh() {
    canCheck_ = centre_.canShowPage();
    Q_EMIT changed();
}

void UpdaterController::checkForUpdates() {
    if (centre_.canShowPage()) centre_.showPage();
}

}  // namespace ornivo::app
