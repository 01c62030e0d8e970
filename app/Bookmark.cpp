#include "app/Bookmark.h"

#include <sys/stat.h>

#include <QList>

namespace ornivo::app::Bookmark {
namespace {

namespace fs = std::filesystem;

constexpr char separator = '\n';
constexpr const char* currentForm = "folder";

/// Device and inode; absent for what is no folder.
std::optional<QByteArray> identityOf(const fs::path& folder) {
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return std::nullopt;
    return QByteArray::number(quint64{status.st_dev}) + separator +
           QByteArray::number(quint64{status.st_ino});
}

}  // namespace

std::optional<QByteArray> make(const fs::path& folder) {
    if (!folder.is_absolute()) return std::nullopt;
    const auto identity = identityOf(folder);
    if (!identity) return std::nullopt;
    return currentForm + QByteArray(1, separator) + *identity + separator +
           QByteArray::fromStdString(folder.native());
}

std::optional<Resolved> resolve(const QByteArray& bookmark) {
    // A path may hold the separator, so it comes last and takes the rest.
    const QList<QByteArray> parts = bookmark.split(separator);
    if (parts.size() < 4 || parts[0] != currentForm) return std::nullopt;
    const QByteArray identity = parts[1] + separator + parts[2];
    const fs::path folder = bookmark.mid(parts[0].size() + 1 + identity.size() + 1).toStdString();
    const auto present = identityOf(folder);
    if (!folder.is_absolute() || !present) return std::nullopt;
    return Resolved{folder, *present != identity};
}

}  // namespace ornivo::app::Bookmark
