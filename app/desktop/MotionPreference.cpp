#include "app/desktop/MotionPreference.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <array>

namespace ornivo::app {
namespace {

struct Setting {
    const char* group;
    const char* key;
    /// What its value must be for movement to be reduced.
    double reducedValue;
};

/// Where desktops keep it: what all of them may agree on, GNOME's switch, KDE's pace.
constexpr std::array settings{
    Setting{"org.freedesktop.appearance", "reduced-motion", 1},
    Setting{"org.gnome.desktop.interface", "enable-animations", 0},
    Setting{"org.kde.kdeglobals.KDE", "AnimationDurationFactor", 0},
};

constexpr auto service = "org.freedesktop.portal.Desktop";
constexpr auto path = "/org/freedesktop/portal/desktop";
constexpr auto interface = "org.freedesktop.portal.Settings";

/// A value in as many wrappings as there are.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value;
}

}  // namespace

MotionPreference::MotionPreference(QObject* parent) : QObject(parent) {
    auto session = QDBusConnection::sessionBus();
    if (!session.isConnected()) return;
    session.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                    SLOT(settingChanged(QString, QString, QDBusVariant)));
    for (const Setting& setting : settings) {
        ask(QString::fromLatin1(setting.group), QString::fromLatin1(setting.key));
    }
}

std::optional<bool> MotionPreference::reading(const QString& group, const QString& key,
                                              const QVariant& value) {
    for (const Setting& setting : settings) {
        if (group != QLatin1String(setting.group) || key != QLatin1String(setting.key)) continue;
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        return isNumber ? std::optional(number == setting.reducedValue) : std::nullopt;
    }
    return std::nullopt;
}

void MotionPreference::ask(const QString& group, const QString& key) {
    auto call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    call << group << key;
    auto* const answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, group, key, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        // A desktop knows one of the settings and says nothing of the others.
        if (reply.isValid()) settingChanged(group, key, reply.value());
        answer->deleteLater();
    });
}

void MotionPreference::settingChanged(const QString& group, const QString& key,
                                      const QDBusVariant& value) {
    const auto reduced = reading(group, key, unwrapped(value.variant()));
    if (!reduced || *reduced == reduced_) return;
    reduced_ = *reduced;
    Q_EMIT reducedChanged();
}

}  // namespace ornivo::app
