#include "platform/UnnamedFile.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/NearestExisting.h"
#include "platform/TemporaryName.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

constexpr mode_t ownersAlone = 0600;

FileDescriptor openUnnamed(const fs::path& folder) {
    FileDescriptor file(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, ownersAlone));
    if (file.isOpen()) return file;
    // FAT and most network file systems: a file that lost its name stands until it is closed.
    const TemporaryName name(folder);
    return FileDescriptor(
        ::open(name.path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ownersAlone));
}

}  // namespace

std::unique_ptr<UnnamedFile> UnnamedFile::ofLength(const fs::path& folder, std::uint64_t bytes) {
    FileDescriptor file = openUnnamed(nearestExisting(folder));
    if (!file.isOpen()) return nullptr;
    // Before the blocks are asked for, so that those of a failed attempt are given back too.
    std::unique_ptr<UnnamedFile> room(new UnnamedFile(std::move(file)));
    const int failure = ::posix_fallocate(room->file_.get(), 0, static_cast<off_t>(bytes));
    return failure == 0 ? std::move(room) : nullptr;
}

UnnamedFile::~UnnamedFile() {
    // Some file systems free a closed file's blocks only later, but a shortened one's at once.
    const int ignored [[maybe_unused]] = ::ftruncate(file_.get(), 0);
}

}  // namespace ornivo
