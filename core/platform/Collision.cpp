#include "platform/Collision.h"

#include <string>

#include "platform/Paths.h"

namespace ornivo {

std::filesystem::path resolveCollision(const std::filesystem::path& path, const Files& files) {
    constexpr int lastSuffix = 9999;
    if (!files.exists(path)) return path;
    const std::string name = lastPathComponent(path);
    const std::string base = deletingPathExtension(name) + "_";
    const std::string dotAndExtension = "." + pathExtension(name);
    for (int suffix = 1; suffix <= lastSuffix; ++suffix) {
        const auto candidate =
            path.parent_path() / (base + std::to_string(suffix) + dotAndExtension);
        if (!files.exists(candidate)) return candidate;
    }
    return path;
}

}  // namespace ornivo
