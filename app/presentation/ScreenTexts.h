#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <string>

namespace ornivo::app {

/// A text of the core. Bytes that are not UTF-8 show as U+FFFD.
QString shown(const std::string& text);

/// A text for a single line: a control character, as a line break is one, becomes a blank.
QString onOneLine(QString text);

/// The last component of a path on a single line, as its reader knows the folder.
QString shownName(const std::filesystem::path& path);

/// The share of `part` in `whole` in percent, rounded half away from zero; 0 of nothing.
int percentage(int part, int whole);

/// How long something took: "12.3s", or from a minute on "2m 5s", with no hours.
QString timeLabel(double seconds);

}  // namespace ornivo::app
