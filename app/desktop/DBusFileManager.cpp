#include "app/desktop/DBusFileManager.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QStringList>

#include "app/FolderUrl.h"

namespace ornivo::app {

void DBusFileManager::reveal(const std::filesystem::path& folder) {
    const QUrl url = urlOf(folder);
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("/org/freedesktop/FileManager1"),
                                               QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("ShowFolders"));
    const QString noStartupID;
    call << QStringList{QString::fromLatin1(url.toEncoded())} << noStartupID;
    const auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [url](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<> reply = *finished;
                if (reply.isError()) QDesktopServices::openUrl(url);
                finished->deleteLater();
            });
}

}  // namespace ornivo::app
