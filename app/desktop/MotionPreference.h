#pragma once

#include <QtQml/qqmlregistration.h>

#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>
#include <optional>

namespace ornivo::app {

/// Whether the user has asked the desktop for as little movement as possible. Asked of the
/// desktop's portal once, and followed from then on; without an answer, things move.
class MotionPreference : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool reduced READ reduced NOTIFY reducedChanged)

public:
    explicit MotionPreference(QObject* parent = nullptr);

    bool reduced() const { return reduced_; }

    /// What one of the desktop's settings says of movement: true and false as under `reduced`,
    /// absent for a setting about something else.
    static std::optional<bool> reading(const QString& group, const QString& key,
                                       const QVariant& value);

Q_SIGNALS:
    void reducedChanged();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& group, const QString& key);

    bool reduced_ = false;
};

}  // namespace ornivo::app
