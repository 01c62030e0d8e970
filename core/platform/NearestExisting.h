#pragma once

#include <filesystem>

namespace ornivo {

/// The path itself, made absolute, or else the nearest one above it that is there: where a folder
/// that is yet to be made will stand. A link counts as what it leads to.
std::filesystem::path nearestExisting(const std::filesystem::path& path);

}  // namespace ornivo
