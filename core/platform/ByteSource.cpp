#include "platform/ByteSource.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace ornivo {

bool holds(const ByteSource& source, ByteRange range) {
    return range.length <= source.size() && range.offset <= source.size() - range.length;
}

std::optional<std::vector<std::uint8_t>> bytesOf(const ByteSource& source, ByteRange range) {
    if (!holds(source, range)) return std::nullopt;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(range.length));
    return source.read(range.offset, bytes) ? std::optional(std::move(bytes)) : std::nullopt;
}

FileBytes::FileBytes(const std::filesystem::path& file)
    // Without waiting, should it be a pipe.
    : descriptor_(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    struct stat facts {};
    if (!descriptor_.isOpen() || ::fstat(descriptor_.get(), &facts) != 0) return;
    if (S_ISREG(facts.st_mode)) size_ = static_cast<std::uint64_t>(facts.st_size);
}

bool FileBytes::read(std::uint64_t offset, std::span<std::uint8_t> into) const {
    if (!holds(*this, {offset, into.size()})) return false;
    while (!into.empty()) {
        const ssize_t got =
            ::pread(descriptor_.get(), into.data(), into.size(), static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        offset += static_cast<std::uint64_t>(got);
        into = into.subspan(static_cast<std::size_t>(got));
    }
    return true;
}

bool MemoryBytes::read(std::uint64_t offset, std::span<std::uint8_t> into) const {
    if (!holds(*this, {offset, into.size()})) return false;
    const auto found = bytes_.subspan(static_cast<std::size_t>(offset), into.size());
    std::ranges::copy(found, into.begin());
    return true;
}

}  // namespace ornivo
