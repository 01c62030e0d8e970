#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ornivo {

/// The name of the file or folder, without what is before it.
std::string lastPathComponent(const std::filesystem::path& path);

/// What follows the last dot of a name, without the dot; empty when there is no dot, or nothing
/// behind it. A name that is only a dot and an extension has that extension: ".jpg" gives "jpg".
std::string pathExtension(std::string_view name);

/// The name without its extension and the dot before it: "a.b.jpg" gives "a.b", ".jpg" gives "".
std::string deletingPathExtension(std::string_view name);

/// The extension of the path's last component in lower case, the form of every extension table.
std::string lowercasedExtension(const std::filesystem::path& path);

/// The path made absolute, without ".", ".." and a slash at its end. Looks at no file, so links
/// stay as they are.
std::filesystem::path standardized(const std::filesystem::path& path);

}  // namespace ornivo
