#pragma once

#include <filesystem>

#include "platform/Files.h"

namespace ornivo {

/// A path in the same folder at which nothing exists: the path itself, or the first that is free
/// when "_1" to "_9999" is put before the dot of the extension, which is written even where there
/// is no extension. With all of them taken it is the path itself, at which a copy then fails.
std::filesystem::path resolveCollision(const std::filesystem::path& path, const Files& files);

}  // namespace ornivo
