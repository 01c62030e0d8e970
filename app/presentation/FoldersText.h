#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <string>

#include "app/presentation/TonedText.h"
#include "media/SpaceEstimate.h"

namespace ornivo::app {

/// How far the look at the source has come.
struct SourceState {
    bool isScanning = false;
    /// Empty unless the source was refused.
    QString refusal = {};
    /// Photographs found, once a scan has ended.
    std::optional<int> found = std::nullopt;
};

/// What the card of folders says under the source. Numbers as a locale writes them; without one,
/// as the user's does.
TonedText sourceStatus(const SourceState& state, const std::string& locale = {});

/// What is to be said of the room that a run will need.
TonedText spaceAdvice(const std::optional<SpaceEstimate>& estimate, const std::string& locale = {});

/// The whole path of a folder, or while there is none what it is for.
TonedText folderLine(const std::optional<std::filesystem::path>& folder, const QString& hint);

QString sourceHint();
QString sinkHint();

}  // namespace ornivo::app
