#include "app/Preferences.h"

#include <string>

namespace ornivo::app::Preferences {
namespace {

constexpr QLatin1String assumedRegionKey("assumedRegionID");
constexpr QLatin1String burstInheritanceKey("burstInheritance");

/// A value of another form than text, such as a list, reads as empty.
QString textIn(const QSettings& preferences, QLatin1String key) {
    const QVariant value = preferences.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

}  // namespace

QString assumedRegionID(const QSettings& preferences) {
    return textIn(preferences, assumedRegionKey);
}

void setAssumedRegionID(QSettings& preferences, const QString& id) {
    if (id.isEmpty()) {
        preferences.remove(assumedRegionKey);
    } else {
        preferences.setValue(assumedRegionKey, id);
    }
}

BurstInheritance burstInheritance(const QSettings& preferences) {
    const std::string text = textIn(preferences, burstInheritanceKey).toStdString();
    return fromRawValue<BurstInheritance>(text).value_or(BurstInheritance::off);
}

void setBurstInheritance(QSettings& preferences, BurstInheritance inheritance) {
    const std::string_view text = rawValue(inheritance);
    preferences.setValue(burstInheritanceKey,
                         QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace ornivo::app::Preferences
