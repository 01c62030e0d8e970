#pragma once

#include <filesystem>
#include <string>

namespace ornivo::cli {

/// All that can still be read from an open file or pipe, to its end. Raises `Error` with the errno
/// as its code; the words are `failure` and the system's own.
std::string readToEnd(int descriptor, const std::string& failure);

/// All of what a path that the user typed leads to: a file, a link to one, or a pipe, as a shell's
/// <(…) is. Raises `Error` as `readToEnd` does.
std::string readTypedPath(const std::filesystem::path& path, const std::string& failure);

}  // namespace ornivo::cli
