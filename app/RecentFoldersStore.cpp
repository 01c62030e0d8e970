#include "app/RecentFoldersStore.h"

#include <QVariant>
#include <algorithm>
#include <iterator>
#include <optional>
#include <system_error>

#include "app/Bookmark.h"
#include "app/FolderUrl.h"
#include "platform/Paths.h"

namespace ornivo::app {
namespace {

namespace fs = std::filesystem;
using Kind = RecentFoldersStore::Kind;

QString keyOf(Kind kind) {
    return kind == Kind::source ? QStringLiteral("recentSourceBookmarks")
                                : QStringLiteral("recentDestBookmarks");
}

/// The same for every way of writing a folder's path, links included.
fs::path comparisonKey(const fs::path& folder) {
    const fs::path path = standardized(folder);
    std::error_code unreachable;
    const fs::path resolved = fs::weakly_canonical(path, unreachable);
    return unreachable ? path : resolved;
}

QList<QUrl> urlsOf(const std::vector<fs::path>& folders) {
    QList<QUrl> urls;
    std::transform(folders.begin(), folders.end(), std::back_inserter(urls), urlOf);
    return urls;
}

}  // namespace

RecentFoldersStore::RecentFoldersStore(QSettings& defaults, QObject* parent)
    : QObject(parent), defaults_(defaults) {
    refreshPublished();
}

void RecentFoldersStore::add(const fs::path& url, Kind kind) {
    const auto bookmark = Bookmark::make(url);
    if (!bookmark) return;
    const fs::path key = comparisonKey(url);
    QList<QByteArray> list{*bookmark};
    for (const QByteArray& saved : savedBookmarks(kind)) {
        const auto found = Bookmark::resolve(saved);
        if (found && comparisonKey(found->folder) != key) list.append(saved);
    }
    saveBookmarks(list.first(std::min(list.size(), limit)), kind);
    refreshPublished();
}

std::vector<fs::path> RecentFoldersStore::resolve(Kind kind) {
    const QList<QByteArray> saved = savedBookmarks(kind);
    QList<QByteArray> mended;
    std::vector<fs::path> folders;
    for (const QByteArray& bookmark : saved) {
        const auto found = Bookmark::resolve(bookmark);
        if (!found) continue;
        const auto kept = found->isStale ? Bookmark::make(found->folder) : bookmark;
        if (!kept) continue;
        mended.append(*kept);
        folders.push_back(found->folder);
    }
    if (mended != saved) saveBookmarks(mended, kind);
    return folders;
}

void RecentFoldersStore::refreshPublished() {
    sourceFolders_ = resolve(Kind::source);
    destinationFolders_ = resolve(Kind::destination);
    Q_EMIT changed();
}

QList<QUrl> RecentFoldersStore::sourceUrls() const {
    return urlsOf(sourceFolders_);
}

QList<QUrl> RecentFoldersStore::destinationUrls() const {
    return urlsOf(destinationFolders_);
}

QList<QByteArray> RecentFoldersStore::savedBookmarks(Kind kind) const {
    const QVariant value = defaults_.value(keyOf(kind));
    if (value.typeId() != QMetaType::QVariantList) return {};
    QList<QByteArray> list;
    for (const QVariant& entry : value.toList()) {
        if (entry.typeId() != QMetaType::QByteArray) return {};
        list.append(entry.toByteArray());
    }
    return list;
}

void RecentFoldersStore::saveBookmarks(const QList<QByteArray>& list, Kind kind) {
    QVariantList values;
    for (const QByteArray& bookmark : list) values.append(bookmark);
    defaults_.setValue(keyOf(kind), values);
}

}  // namespace ornivo::app
