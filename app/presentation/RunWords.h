#pragma once

#include <QString>
#include <filesystem>
#include <optional>

namespace ornivo::app {

/// What is said of a run both by the card at its end and by the desktop's notification. The nouns
/// are never inflected: one photo reads as 1 photos.
QString sortedWords(int count);
QString uncertainWords(int count);
QString matchedWords(int count);
/// Where a run stopped.
QString stoppedWords(int processed, int total);
/// The same of one that a full disk ended, with the name of the destination.
QString diskFullWords(int processed, int total, const std::optional<std::filesystem::path>& sink);

}  // namespace ornivo::app
