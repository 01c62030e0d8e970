#pragma once

#include <filesystem>

namespace ornivo::cli {

/// A folder that must be there, as the user named it, made absolute and without links. Raises
/// `UsageError` for anything else.
std::filesystem::path existingFolder(const std::filesystem::path& path);

}  // namespace ornivo::cli
