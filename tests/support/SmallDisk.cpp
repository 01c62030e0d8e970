#include "support/SmallDisk.h"

#include <stdlib.h>
#include <sys/mount.h>

#include <string>
#include <system_error>

namespace ornivo::testing {

namespace fs = std::filesystem;

std::unique_ptr<SmallDisk> SmallDisk::mount(std::int64_t bytes) {
    std::string name = (fs::temp_directory_path() / "ornivo-disk-XXXXXX").string();
    if (!mkdtemp(name.data())) return nullptr;
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
