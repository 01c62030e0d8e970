#include "platform/FileCopy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

#include "platform/ExclusiveRename.h"
#include "platform/ExtendedAttributes.h"
#include "platform/FileErrors.h"
#include "platform/Flush.h"
#include "platform/GIOFiles.h"
#include "platform/TemporaryName.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view copied = "copied";

void require(int errnoValue, const fs::path& source) {
    if (errnoValue != 0) throw fileError(source, copied, errnoValue);
}

struct stat statusOf(const fs::path& path, const fs::path& source) {
    struct stat status {};
    require(::lstat(path.c_str(), &status) == 0 ? 0 : errno, source);
    return status;
}

bool isTaken(const fs::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

void copyContents(const fs::path& from, const fs::path& to) {
    const auto failure = GIOFiles::copy(from, to);
    if (!failure) return;
    if (failure->errnoValue) throw fileError(from, copied, *failure->errnoValue);
    throw fileError(from, copied, failure->words);
}

/// The system lets no one set attributes on a file that is write-protected, so the copy of one,
/// as cameras make of protected shots, has come without them.
void keepAttributes(const struct stat& source, const fs::path& from, const fs::path& copy) {
    if (source.st_mode & S_IWUSR) return;
    ::chmod(copy.c_str(), source.st_mode | S_IWUSR);
    copyExtendedAttributes(from, copy);
    ::chmod(copy.c_str(), source.st_mode);
}

/// To the nanosecond, where the file system keeps that; one that keeps no times is no failure.
void keepModificationTime(const struct stat& source, const fs::path& copy) {
    const std::array<timespec, 2> times{timespec{0, UTIME_OMIT}, source.st_mtim};
    ::utimensat(AT_FDCWD, copy.c_str(), times.data(), AT_SYMLINK_NOFOLLOW);
}

bool isUnchanged(const struct stat& before, const struct stat& after) {
    return before.st_size == after.st_size && before.st_mtim.tv_sec == after.st_mtim.tv_sec &&
           before.st_mtim.tv_nsec == after.st_mtim.tv_nsec;
}

void checkComplete(const struct stat& before, const fs::path& from, const fs::path& copy) {
    if (!isUnchanged(before, statusOf(from, from))) {
        throw fileError(from, copied, "It changed meanwhile");
    }
    if (statusOf(copy, from).st_size != before.st_size) throw fileError(from, copied, EIO);
}

}  // namespace

void copyFile(const fs::path& from, const fs::path& to, Durability durability) {
    const struct stat source = statusOf(from, from);
    if (!S_ISREG(source.st_mode)) throw fileError(from, copied, "It is not an ordinary file");
    if (isTaken(to)) throw fileError(from, copied, EEXIST);

    const TemporaryName temporary(to.parent_path());
    copyContents(from, temporary.path());
    keepAttributes(source, from, temporary.path());
    keepModificationTime(source, temporary.path());
    checkComplete(source, from, temporary.path());
    if (durability == Durability::flushed) require(Flush::file(temporary.path()), from);
    require(ExclusiveRename::rename(temporary.path(), to), from);

    if (durability == Durability::cached) return;
    const int unflushed = Flush::folder(to.parent_path());
    if (unflushed == 0) return;
    ::unlink(to.c_str());
    throw fileError(from, copied, unflushed);
}

}  // namespace ornivo
