#include "platform/Paths.h"

#include <system_error>

#include "platform/Text.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// Where the dot before the extension stands; `npos` when there is no extension.
std::size_t extensionDot(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    const bool somethingFollows = dot != std::string_view::npos && dot + 1 < name.size();
    return somethingFollows ? dot : std::string_view::npos;
}

}  // namespace

std::string lastPathComponent(const fs::path& path) {
    std::string_view text = path.native();
    while (text.size() > 1 && text.ends_with('/')) text.remove_suffix(1);
    if (text == "/") return "/";
    return std::string(text.substr(text.rfind('/') + 1));
}

std::string pathExtension(std::string_view name) {
    const std::size_t dot = extensionDot(name);
    return dot == std::string_view::npos ? std::string() : std::string(name.substr(dot + 1));
}

std::string deletingPathExtension(std::string_view name) {
    return std::string(name.substr(0, extensionDot(name)));
}

std::string lowercasedExtension(const fs::path& path) {
    return lowercased(pathExtension(lastPathComponent(path)));
}

fs::path standardized(const fs::path& path) {
    std::error_code noCurrentFolder;
    const fs::path current = path.is_absolute() ? fs::path() : fs::current_path(noCurrentFolder);
    const fs::path normal = (current / path).lexically_normal();
    return normal.has_filename() || !normal.has_relative_path() ? normal : normal.parent_path();
}

}  // namespace ornivo
