#pragma once

#include <QDBusConnection>
#include <QObject>

#include "app/desktop/FileManager.h"

namespace ornivo::app {

/// The file manager by org.freedesktop.FileManager1, or where none answers there, whatever opens
/// folders.
class DBusFileManager final : public QObject, public FileManager {
    Q_OBJECT

public:
    explicit DBusFileManager(const QDBusConnection& bus) : bus_(bus) {}

    void reveal(const std::filesystem::path& folder) override;

private:
    QDBusConnection bus_;
};

}  // namespace ornivo::app
