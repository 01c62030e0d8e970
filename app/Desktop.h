#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QUrl>

#include "app/FolderUrl.h"
#include "app/desktop/FileManager.h"

namespace ornivo::app {

/// What the screens ask of the desktop.
class Desktop : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one desktop.")

public:
    /// The file manager outlives this.
    explicit Desktop(FileManager& files, QObject* parent = nullptr)
        : QObject(parent), files_(files) {}

    /// Shows a folder in the desktop's viewer of files.
    Q_INVOKABLE void reveal(const QUrl& folder) {
        if (const auto path = pathOf(folder)) files_.reveal(*path);
    }

private:
    FileManager& files_;
};

}  // namespace ornivo::app
