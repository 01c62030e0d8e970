#include "platform/ExclusiveRename.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/FileDescriptor.h"

namespace ornivo::ExclusiveRename {
namespace {

constexpr std::array notKnownHere{EINVAL, ENOSYS, EPERM, ENOTSUP};

bool isNotKnownHere(int errnoValue) {
    return std::ranges::find(notKnownHere, errnoValue) != notKnownHere.end();
}

}  // namespace

int rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    const int flagged = byFlag(from, to);
    if (!isNotKnownHere(flagged)) return flagged;
    const int linked = byLink(from, to);
    if (!isNotKnownHere(linked)) return linked;
    return byClaim(from, to);
}

int byFlag(const std::filesystem::path& from, const std::filesystem::path& to) {
    return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0 ? 0
                                                                                          : errno;
}

int byLink(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (::link(from.c_str(), to.c_str()) != 0) return errno;
    if (::unlink(from.c_str()) == 0) return 0;
    const int reason = errno;
    ::unlink(to.c_str());
    return reason;
}

int byClaim(const std::filesystem::path& from, const std::filesystem::path& to) {
    {
        const FileDescriptor claim(
            ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (!claim.isOpen()) return errno;
    }
    if (::rename(from.c_str(), to.c_str()) == 0) return 0;
    const int reason = errno;
    ::unlink(to.c_str());
    return reason;
}

}  // namespace ornivo::ExclusiveRename
