#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ornivo::Resources {

/// The folder with the data that ships with the program: beside the executable, as in the build
/// tree, or under share/ornivo of the prefix it is installed in. Looked for once. Without it the
/// process ends with a message.
const std::filesystem::path& bundle();

/// A file or folder of the bundle by name and extension; absent when it is not there.
std::optional<std::filesystem::path> find(const std::string& name, const std::string& extension);

/// The whole of a file of the bundle; absent when it is not there or cannot be read.
std::optional<std::string> read(const std::string& name, const std::string& extension);

/// The user's folder for what can be made again ($XDG_CACHE_HOME, or ~/.cache), made if missing.
/// Raises `Error`.
std::filesystem::path cachesDirectory();

}  // namespace ornivo::Resources
