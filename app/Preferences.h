#pragma once

#include <QSettings>
#include <QString>

#include "vocabulary/BurstInheritance.h"

/// What the application remembers from one start to the next, beside the recent folders.
namespace ornivo::app::Preferences {

/// The id of the region that the user named; empty for none.
QString assumedRegionID(const QSettings& preferences);
void setAssumedRegionID(QSettings& preferences, const QString& id);

/// `off` for anything that can't be read.
BurstInheritance burstInheritance(const QSettings& preferences);
void setBurstInheritance(QSettings& preferences, BurstInheritance inheritance);

}  // namespace ornivo::app::Preferences
