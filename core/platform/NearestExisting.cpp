#include "platform/NearestExisting.h"

#include <system_error>

#include "platform/Paths.h"

namespace ornivo {

std::filesystem::path nearestExisting(const std::filesystem::path& path) {
    std::filesystem::path at = standardized(path);
    std::error_code ignored;
    while (!std::filesystem::exists(at, ignored) && at.has_relative_path()) at = at.parent_path();
    return at;
}

}  // namespace ornivo
