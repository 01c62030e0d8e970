#pragma once

#include <QString>

namespace ornivo::app {

/// What stands under the program's name.
QString tagline(const QString& version);

}  // namespace ornivo::app
