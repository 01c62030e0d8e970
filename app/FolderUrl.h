#pragma once

#include <QUrl>
#include <filesystem>
#include <optional>

namespace ornivo::app {

/// A path as a URL. Names are bytes: those that are not UTF-8 survive the way there and back.
QUrl urlOf(const std::filesystem::path& path);

/// The path of a URL; absent for what is no absolute path on this machine.
std::optional<std::filesystem::path> pathOf(const QUrl& url);

}  // namespace ornivo::app
