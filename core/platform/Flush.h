#pragma once

#include <filesystem>

/// Makes sure that what was written is on the disk. Each answers 0, or the errno of what failed.
namespace ornivo::Flush {

/// The contents of a file.
int file(const std::filesystem::path& path);

/// The names in a folder. No failure where the file system has no such operation for folders.
int folder(const std::filesystem::path& path);

}  // namespace ornivo::Flush
