#pragma once

#include <QtQml/qqmlregistration.h>

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSettings>
#include <QUrl>
#include <filesystem>
#include <vector>

namespace ornivo::app {

/// Remembers the folders that the user chose, sources and destinations apart, so that one can be
/// chosen again with one press. They are kept in the preferences as bookmarks.
class RecentFoldersStore : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The store has the one there is.")

    /// Newest first. The names to show are those of the folders' last components.
    Q_PROPERTY(QList<QUrl> sourceFolders READ sourceUrls NOTIFY changed)
    Q_PROPERTY(QList<QUrl> destinationFolders READ destinationUrls NOTIFY changed)

public:
    enum class Kind { source, destination };

    /// Folders kept of each kind.
    static constexpr qsizetype limit = 10;

    explicit RecentFoldersStore(QSettings& defaults, QObject* parent = nullptr);

    /// Puts a folder at the front of its list. One that can't be bookmarked is ignored.
    void add(const std::filesystem::path& url, Kind kind);

    /// The folders of a kind that are still there, newest first. Mends the list on the way: folders
    /// that are gone are dropped, bookmarks that are stale are remade.
    std::vector<std::filesystem::path> resolve(Kind kind);

    void refreshPublished();

    const std::vector<std::filesystem::path>& sourceFolders() const { return sourceFolders_; }
    const std::vector<std::filesystem::path>& destinationFolders() const {
        return destinationFolders_;
    }
    QList<QUrl> sourceUrls() const;
    QList<QUrl> destinationUrls() const;

Q_SIGNALS:
    void changed();

private:
    QList<QByteArray> savedBookmarks(Kind kind) const;
    void saveBookmarks(const QList<QByteArray>& list, Kind kind);

    QSettings& defaults_;
    std::vector<std::filesystem::path> sourceFolders_;
    std::vector<std::filesystem::path> destinationFolders_;
};

}  // namespace ornivo::app
