#include "platform/Flush.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/FileDescriptor.h"

namespace ornivo::Flush {
namespace {

int flushed(const std::filesystem::path& path, int flags) {
    const FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | flags));
    if (!descriptor.isOpen()) return errno;
    return ::fsync(descriptor.get()) == 0 ? 0 : errno;
}

}  // namespace

int file(const std::filesystem::path& path) {
    return flushed(path, O_NOFOLLOW | O_NONBLOCK);
}

int folder(const std::filesystem::path& path) {
    const int result = flushed(path.empty() ? "." : path, O_DIRECTORY);
    return result == EINVAL || result == ENOTSUP ? 0 : result;
}

}  // namespace ornivo::Flush
