#include "platform/CloneProbe.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "platform/FileDescriptor.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

FileDescriptor unnamedIn(const fs::path& folder) {
    return FileDescriptor(
        ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR));
}

/// Not open where no file below the folder holds anything and can be read.
FileDescriptor firstFileBelow(const fs::path& folder) {
    std::error_code failure;
    constexpr auto passOver = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator entry(folder, passOver, failure), end;
         !failure && entry != end; entry.increment(failure)) {
        std::error_code ignored;
        const bool isFile = fs::is_regular_file(entry->symlink_status(ignored));
        if (!isFile || entry->file_size(ignored) == 0) continue;
        FileDescriptor file(::open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
        if (file.isOpen()) return file;
    }
    return FileDescriptor(-1);
}

/// Not open where none can be made.
FileDescriptor filledUnnamedIn(const fs::path& folder) {
    FileDescriptor file = unnamedIn(folder);
    constexpr std::array<char, 4096> block{};
    const bool isFilled =
        file.isOpen() && ::write(file.get(), block.data(), block.size()) == ssize_t{block.size()};
    return isFilled ? std::move(file) : FileDescriptor(-1);
}

bool isRefusal(int errnoValue) {
    return errnoValue == EOPNOTSUPP || errnoValue == ENOTTY || errnoValue == EXDEV ||
           errnoValue == EINVAL;
}

std::optional<bool> sharesBlocks(const FileDescriptor& original, const FileDescriptor& copy) {
    if (!original.isOpen() || !copy.isOpen()) return std::nullopt;
    if (::ioctl(copy.get(), FICLONE, original.get()) != 0) {
        return isRefusal(errno) ? std::optional(false) : std::nullopt;
    }
    // Some file systems let go of a closed file's blocks only later, but of a shortened one's at
    // once.
    const int ignored [[maybe_unused]] = ::ftruncate(copy.get(), 0);
    return true;
}

}  // namespace

std::optional<bool> clonesWhenAsked(const fs::path& source, const fs::path& folder) {
    const FileDescriptor copy = unnamedIn(folder);
    if (!copy.isOpen()) return std::nullopt;
    const FileDescriptor original = firstFileBelow(source);
    return original.isOpen() ? sharesBlocks(original, copy)
                             : sharesBlocks(filledUnnamedIn(folder), copy);
}

}  // namespace ornivo
