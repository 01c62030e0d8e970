#include "platform/VolumeInfo.h"

#include <fcntl.h>
#include <linux/btrfs.h>
#include <linux/magic.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/statfs.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <string_view>
#include <system_error>

#include "platform/FileDescriptor.h"
#include "platform/MountPoint.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// What the kernel answers about an XFS, in the form that kernels of all ages know. Only the flags
/// count here.
struct XfsGeometry {
    std::array<std::byte, 92> sizes;
    std::uint32_t flags;
    std::array<std::byte, 16> moreSizes;
};
static_assert(sizeof(XfsGeometry) == 112 && offsetof(XfsGeometry, flags) == 92);

constexpr unsigned long xfsGeometryRequest = _IOR('X', 124, XfsGeometry);
constexpr std::uint32_t xfsReflinkFlag = 1U << 20U;

FileDescriptor opened(const fs::path& path) {
    return FileDescriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

/// The same for every subvolume, each of which has a device number of its own.
std::optional<std::string> btrfsIdentity(const fs::path& path) {
    btrfs_ioctl_fs_info_args info{};
    const FileDescriptor folder = opened(path);
    if (!folder.isOpen() || ::ioctl(folder.get(), BTRFS_IOC_FS_INFO, &info) != 0) {
        return std::nullopt;
    }
    const std::string_view id(reinterpret_cast<const char*>(info.fsid), sizeof info.fsid);
    return "btrfs " + std::string(id);
}

bool hasXfsReflinks(const fs::path& path) {
    XfsGeometry geometry{};
    const FileDescriptor folder = opened(path);
    return folder.isOpen() && ::ioctl(folder.get(), xfsGeometryRequest, &geometry) == 0 &&
           (geometry.flags & xfsReflinkFlag) != 0;
}

std::int64_t availableBytes(const fs::path& path) {
    std::error_code failure;
    const auto space = fs::space(path, failure);
    if (failure) return 0;
    constexpr std::uintmax_t most = std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(std::min<std::uintmax_t>(space.available, most));
}

std::optional<std::string> nameOf(const fs::path& path) {
    const auto mountPoint = mountPointOf(path);
    if (!mountPoint || !mountPoint->has_relative_path()) return std::nullopt;
    return wellFormed(lastPathComponent(*mountPoint));
}

}  // namespace

std::optional<VolumeInfo> volumeOf(const fs::path& path) {
    struct stat status {};
    struct statfs system {};
    if (::stat(path.c_str(), &status) != 0 || ::statfs(path.c_str(), &system) != 0) {
        return std::nullopt;
    }
    VolumeInfo volume{"device " + std::to_string(status.st_dev), nameOf(path), availableBytes(path),
                      false};
    const auto type = static_cast<std::uint32_t>(system.f_type);
    if (type == XFS_SUPER_MAGIC) volume.supportsCloning = hasXfsReflinks(path);
    if (type == BTRFS_SUPER_MAGIC) {
        volume.supportsCloning = true;
        if (auto identity = btrfsIdentity(path)) volume.identity = *std::move(identity);
    }
    return volume;
}

}  // namespace ornivo
