#include "app/FolderUrl.h"

#include <QByteArray>

namespace ornivo::app {
namespace {

namespace fs = std::filesystem;

}  // namespace

QUrl urlOf(const fs::path& path) {
    const QByteArray bytes = QByteArray::fromStdString(path.native());
    return QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/"));
}

std::optional<fs::path> pathOf(const QUrl& url) {
    const bool isHere = url.isLocalFile() && (url.host().isEmpty() || url.host() == "localhost");
    if (!isHere) return std::nullopt;
    const QByteArray encoded = url.path(QUrl::FullyEncoded).toLatin1();
    const QByteArray bytes = QByteArray::fromPercentEncoding(encoded);
    if (!bytes.startsWith('/') || bytes.contains('\0')) return std::nullopt;
    return fs::path(bytes.toStdString());
}

}  // namespace ornivo::app
