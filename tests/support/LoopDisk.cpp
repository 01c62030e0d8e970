#include "support/LoopDisk.h"

#include <fcntl.h>
#include <linux/btrfs.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "platform/FileDescriptor.h"

namespace ornivo::testing {

namespace fs = std::filesystem;

namespace {

/// The smallest size that every kind can have.
constexpr std::uintmax_t imageBytes = 400'000'000;

const char* makerOf(LoopDisk::Kind kind) {
    switch (kind) {
        case LoopDisk::Kind::ext4:
            return "mkfs.ext4 -q -F -m 0";
        case LoopDisk::Kind::btrfs:
            return "mkfs.btrfs -q -f";
        case LoopDisk::Kind::xfs:
            return "mkfs.xfs -q -f -m reflink=1";
        case LoopDisk::Kind::xfsWithoutReflinks:
            return "mkfs.xfs -q -f -m reflink=0";
    }
    return "false";
}

bool succeeds(const std::string& command) {
    const std::string quiet = "PATH=$PATH:/usr/sbin:/sbin; " + command + " > /dev/null 2>&1";
    return std::system(quiet.c_str()) == 0;
}

std::string quoted(const fs::path& path) {
    return "'" + path.string() + "'";
}

FileDescriptor openFolder(const fs::path& folder) {
    return FileDescriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace

std::unique_ptr<LoopDisk> LoopDisk::mount(Kind kind) {
    std::unique_ptr<LoopDisk> disk(new LoopDisk);
    disk->isMounted_ = disk->make(kind);
    return disk->isMounted_ ? std::move(disk) : nullptr;
}

bool LoopDisk::make(Kind kind) const {
    const fs::path image = writeFile(folder_ / "image", "");
    fs::resize_file(image, imageBytes);
    fs::create_directory(path());
    return succeeds(makerOf(kind) + (" " + quoted(image))) &&
           succeeds("mount -o loop " + quoted(image) + " " + quoted(path()));
}

LoopDisk::~LoopDisk() {
    // The loop device goes with the mount.
    if (isMounted_) ::umount2(path().c_str(), MNT_DETACH);
}

std::int64_t LoopDisk::freeBytes() const {
    ::syncfs(openFolder(path()).get());
    return static_cast<std::int64_t>(fs::space(path()).available);
}

fs::path LoopDisk::makeSubvolume(const std::string& name) const {
    btrfs_ioctl_vol_args arguments{};
    std::strncpy(arguments.name, name.c_str(), sizeof arguments.name - 1);
    if (::ioctl(openFolder(path()).get(), BTRFS_IOC_SUBVOL_CREATE, &arguments) != 0) {
        throw std::runtime_error("no subvolume could be made");
    }
    return path() / name;
}

fs::path LoopDisk::makeFolderOfFilesKeptInPlace(const std::string& name) const {
    fs::create_directory(path() / name);
    const int noCopyOnWrite = FS_NOCOW_FL;
    if (::ioctl(openFolder(path() / name).get(), FS_IOC_SETFLAGS, &noCopyOnWrite) != 0) {
        throw std::runtime_error("no folder of files kept in place could be made");
    }
    return path() / name;
}

}  // namespace ornivo::testing
