#pragma once

#include <QObject>
#include <QString>
#include <filesystem>
#include <vector>

namespace ornivo::app {

/// A folder chosen before, as a button says it.
struct RecentFolder {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString path MEMBER path)

public:
    QString name;
    QString path;

    bool operator==(const RecentFolder&) const = default;
};

/// Folders in their order.
std::vector<RecentFolder> recentFolders(const std::vector<std::filesystem::path>& folders);

}  // namespace ornivo::app
