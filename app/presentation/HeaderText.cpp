#include "app/presentation/HeaderText.h"

namespace ornivo::app {

QString tagline(const QString& version) {
    const QString purpose = QStringLiteral("Bird photo organiser");
    return version.isEmpty() ? purpose : purpose + QStringLiteral(" · v") + version;
}

}  // namespace ornivo::app
