#include "platform/Resources.h"

#include <glib.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <system_error>

#include "platform/Error.h"
#include "platform/Files.h"

namespace ornivo::Resources {
namespace {

namespace fs = std::filesystem;

constexpr const char* bundleName = "OrnivoCore_OrnivoCore";

bool isThere(const fs::path& path) {
    std::error_code unreadable;
    return fs::exists(path, unreadable);
}

fs::path locateBundle() {
    std::error_code unknown;
    const fs::path programs = fs::read_symlink("/proc/self/exe", unknown).parent_path();
    const std::array candidates{programs, programs.parent_path() / "share/ornivo"};
    for (const fs::path& candidate : candidates) {
        fs::path bundle = candidate / (std::string(bundleName) + ".bundle");
        if (isThere(bundle)) return bundle;
    }
    std::fprintf(stderr,
                 "OrnivoCore/resource_bundle_accessor: Fatal error: unable to find bundle named "
                 "%s\n",
                 bundleName);
    std::abort();
}

fs::path cachesLocation() {
    const char* const chosen = std::getenv("XDG_CACHE_HOME");
    if (chosen && fs::path(chosen).is_absolute()) return chosen;
    return fs::path(g_get_home_dir()) / ".cache";
}

}  // namespace

const fs::path& bundle() {
    static const fs::path found = locateBundle();
    return found;
}

std::optional<fs::path> find(const std::string& name, const std::string& extension) {
    const fs::path candidate = bundle() / (extension.empty() ? name : name + '.' + extension);
    if (!isThere(candidate)) return std::nullopt;
    return candidate;
}

std::optional<std::string> read(const std::string& name, const std::string& extension) {
    const auto file = find(name, extension);
    if (!file) return std::nullopt;
    try {
        return Files::system()->read(*file);
    } catch (const Error&) {
        return std::nullopt;
    }
}

fs::path cachesDirectory() {
    fs::path location = cachesLocation();
    Files::system()->createDirectories(location);
    return location;
}

}  // namespace ornivo::Resources
