#include "app/desktop/DBusNotifications.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>
#include <utility>

#include "app/AppIdentity.h"

namespace ornivo::app {
namespace {

const auto service = QStringLiteral("org.freedesktop.Notifications");
const auto path = QStringLiteral("/org/freedesktop/Notifications");
const auto pressed = QStringLiteral("default");
constexpr int asLongAsTheDesktopLikes = -1;

}  // namespace

DBusNotifications::DBusNotifications(const QDBusConnection& bus) : bus_(bus) {
    bus_.connect(service, path, service, QStringLiteral("ActivationToken"), this,
                 SLOT(activationToken(uint, QString)));
    bus_.connect(service, path, service, QStringLiteral("ActionInvoked"), this,
                 SLOT(actionInvoked(uint, QString)));
}

void DBusNotifications::show(const QString& title, const QString& body, Activated activated) {
    token_.clear();
    activated_ = std::move(activated);
    auto call = QDBusMessage::createMethodCall(service, path, service, QStringLiteral("Notify"));
    const QString identity = QString::fromLatin1(applicationID);
    // The body is read as mark-up.
    call << QStringLiteral("Ornivo") << id_ << identity << title << body.toHtmlEscaped()
         << QStringList{pressed, QString()}
         << QVariantMap{{QStringLiteral("desktop-entry"), identity}} << asLongAsTheDesktopLikes;
    const auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<uint> reply = *finished;
                if (reply.isValid()) id_ = reply.value();
                finished->deleteLater();
            });
}

void DBusNotifications::activationToken(uint id, const QString& token) {
    if (id == id_) token_ = token.toUtf8();
}

void DBusNotifications::actionInvoked(uint id, const QString& action) {
    if (id == id_ && action == pressed && activated_) activated_(std::exchange(token_, {}));
}

}  // namespace ornivo::app
