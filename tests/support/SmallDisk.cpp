#include "support/SmallDisk.h"

#include <sched.h>
#include <stdlib.h>
#include <sys/mount.h>
#include <unistd.h>

#include <fstream>
#include <mutex>
#include <string>
#include <system_error>

namespace ornivo::testing {

namespace fs = std::filesystem;

namespace {

/// An ordinary user may mount in a namespace of this process's own, where the system allows that.
/// There the user stays who it is. Does nothing for root, and nothing once there are threads.
void enterNamespaceOfItsOwn() {
    const std::string user = std::to_string(::geteuid());
    const std::string group = std::to_string(::getegid());
    if (user == "0" || ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return;
    std::ofstream("/proc/self/uid_map") << user << " " << user << " 1";
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/gid_map") << group << " " << group << " 1";
}

}  // namespace

std::unique_ptr<SmallDisk> SmallDisk::mount(std::int64_t bytes) {
    std::string name = (fs::temp_directory_path() / "ornivo-disk-XXXXXX").string();
    if (!mkdtemp(name.data())) return nullptr;
    static std::once_flag isEntered;
    std::call_once(isEntered, enterNamespaceOfItsOwn);
    const std::string options = "size=" + std::to_string(bytes);
    if (::mount("tmpfs", name.c_str(), "tmpfs", 0, options.c_str()) != 0) {
        fs::remove(name);
        return nullptr;
    }
    return std::unique_ptr<SmallDisk>(new SmallDisk(name));
}

SmallDisk::~SmallDisk() {
    ::umount2(path_.c_str(), MNT_DETACH);
    std::error_code ignored;
    fs::remove(path_, ignored);
}

std::int64_t SmallDisk::freeBytes() const {
    return static_cast<std::int64_t>(fs::space(path_).available);
}

bool SmallDisk::makeReadOnly() {
    return ::mount(nullptr, path_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

}  // namespace ornivo::testing
