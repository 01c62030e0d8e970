#include "cli/Input.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/Error.h"
#include "platform/FileDescriptor.h"

namespace ornivo::cli {

std::string readToEnd(int descriptor, const std::string& failure) {
    std::string text;
    std::array<char, 64 * 1024> buffer{};
    while (true) {
        const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw Error::posix(errno, failure);
        if (count == 0) return text;
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

std::string readTypedPath(const std::filesystem::path& path, const std::string& failure) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen()) throw Error::posix(errno, failure);
    return readToEnd(file.get(), failure);
}

}  // namespace ornivo::cli
