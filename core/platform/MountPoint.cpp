#include "platform/MountPoint.h"

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <string>

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// Blanks and the like stand as "\040" in the list.
fs::path unescaped(const std::string& escaped) {
    const std::unique_ptr<gchar, decltype(&g_free)> text(g_strcompress(escaped.c_str()), g_free);
    return text.get();
}

}  // namespace

std::optional<fs::path> mountPointOf(const fs::path& path) {
    struct statx status {};
    if (::statx(AT_FDCWD, path.c_str(), 0, STATX_MNT_ID, &status) != 0) return std::nullopt;
    if ((status.stx_mask & STATX_MNT_ID) == 0) return std::nullopt;
    std::ifstream mounts("/proc/self/mountinfo");
    return mountPointIn(mounts, status.stx_mnt_id);
}

std::optional<fs::path> mountPointIn(std::istream& mounts, std::uint64_t mountNumber) {
    for (std::string line; std::getline(mounts, line);) {
        std::istringstream fields(line);
        std::uint64_t number = 0;
        std::string parent;
        std::string device;
        std::string root;
        std::string mountPoint;
        fields >> number >> parent >> device >> root >> mountPoint;
        if (fields && number == mountNumber) return unescaped(mountPoint);
    }
    return std::nullopt;
}

}  // namespace ornivo
