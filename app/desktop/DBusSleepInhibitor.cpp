#include "app/desktop/DBusSleepInhibitor.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace ornivo::app {
namespace {

/// The portal's flag for keeping the session from suspending; the screen may go dark.
constexpr uint suspendFlag = 4;

QDBusMessage portalCall(const QString& reason) {
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                               QStringLiteral("/org/freedesktop/portal/desktop"),
                                               QStringLiteral("org.freedesktop.portal.Inhibit"),
                                               QStringLiteral("Inhibit"));
    const QString noParentWindow;
    call << noParentWindow << suspendFlag << QVariantMap{{QStringLiteral("reason"), reason}};
    return call;
}

QDBusMessage logindCall(const QString& reason) {
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    call << QStringLiteral("sleep") << QStringLiteral("Ornivo") << reason
         << QStringLiteral("block");
    return call;
}

QDBusMessage closeCall(const QString& request) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"), request,
                                          QStringLiteral("org.freedesktop.portal.Request"),
                                          QStringLiteral("Close"));
}

}  // namespace

DBusSleepInhibitor::Hold::~Hold() {
    // The lock goes with its descriptor.
    if (request) session.send(closeCall(request->path()));
}

DBusSleepInhibitor::DBusSleepInhibitor(const QDBusConnection& session,
                                       const QDBusConnection& system)
    : session_(session), system_(system) {}

DBusSleepInhibitor::~DBusSleepInhibitor() = default;

void DBusSleepInhibitor::hold(const QString& reason) {
    if (hold_) return;
    hold_ = std::make_shared<Hold>(session_);
    askPortal(hold_, reason);
}

void DBusSleepInhibitor::release() {
    hold_.reset();
}

void DBusSleepInhibitor::askPortal(const std::shared_ptr<Hold>& hold, const QString& reason) {
    const auto* watcher = new QDBusPendingCallWatcher(session_.asyncCall(portalCall(reason)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, hold, reason](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<QDBusObjectPath> reply = *finished;
                if (reply.isValid()) {
                    hold->request = reply.value();
                } else {
                    askLogind(hold, reason);
                }
                finished->deleteLater();
            });
}

void DBusSleepInhibitor::askLogind(const std::shared_ptr<Hold>& hold, const QString& reason) {
    const auto* watcher = new QDBusPendingCallWatcher(system_.asyncCall(logindCall(reason)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [hold](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *finished;
                if (reply.isValid()) hold->lock = reply.value();
                finished->deleteLater();
            });
}

}  // namespace ornivo::app
