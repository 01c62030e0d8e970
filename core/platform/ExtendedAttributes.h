#pragma once

#include <filesystem>

namespace ornivo {

/// Gives a file all extended attributes of another that users may set. What cannot be read or
/// kept is left out: where the file system knows no attributes there are none to lose.
void copyExtendedAttributes(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace ornivo
