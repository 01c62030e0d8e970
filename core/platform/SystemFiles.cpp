#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include "platform/ExclusiveRename.h"
#include "platform/FileCopy.h"
#include "platform/FileDescriptor.h"
#include "platform/FileErrors.h"
#include "platform/Files.h"
#include "platform/Flush.h"
#include "platform/FolderListing.h"
#include "platform/GIOFiles.h"
#include "platform/TemporaryName.h"
#include "platform/UnnamedFile.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// Of what is new; the user's umask takes from them.
constexpr mode_t newFileMode = 0666;
constexpr mode_t newFolderMode = 0777;

std::optional<struct stat> statusOf(const fs::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return std::nullopt;
    return status;
}

/// Opens an ordinary file; anything else fails at once, without waiting for whoever might write
/// into a pipe.
FileDescriptor openOrdinary(const fs::path& path, int flags, std::string_view done) {
    FileDescriptor file(
        ::open(path.c_str(), flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, newFileMode));
    if (!file.isOpen()) throw fileError(path, done, errno);
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) throw fileError(path, done, errno);
    if (!S_ISREG(status.st_mode)) throw fileError(path, done, "It is not an ordinary file");
    return file;
}

/// Answers 0, or the errno of what failed after some of the bytes may have been written.
int writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

class SystemAppendingFile : public AppendingFile {
public:
    explicit SystemAppendingFile(const fs::path& path)
        : path_(path), file_(openOrdinary(path, O_WRONLY | O_APPEND | O_CREAT, "written")) {}

    void write(std::string_view bytes) override {
        struct stat before {};
        if (::fstat(file_.get(), &before) != 0) throw fileError(path_, "written", errno);
        const int failure = writeAll(file_.get(), bytes);
        if (failure == 0) return;
        // A piece alone would spoil whatever is added next.
        const int ignored [[maybe_unused]] = ::ftruncate(file_.get(), before.st_size);
        throw fileError(path_, "written", failure);
    }

private:
    fs::path path_;
    FileDescriptor file_;
};

class SystemFiles : public Files {
public:
    bool exists(const fs::path& path) const override { return statusOf(path).has_value(); }

    bool isFolder(const fs::path& path) const override {
        const auto status = statusOf(path);
        return status && S_ISDIR(status->st_mode);
    }

    std::vector<std::string> namesIn(const fs::path& folder) const override {
        return FolderListing::names(folder);
    }

    std::optional<std::time_t> modificationTime(const fs::path& path) const override {
        const auto status = statusOf(path);
        if (!status) return std::nullopt;
        return status->st_mtim.tv_sec;
    }

    std::string read(const fs::path& path) const override;
    void createDirectories(const fs::path& folder) override;

    void copy(const fs::path& from, const fs::path& to, Durability durability) override {
        copyFile(from, to, durability);
    }

    void move(const fs::path& from, const fs::path& to) override;

    void remove(const fs::path& path) override {
        if (::unlink(path.c_str()) != 0) throw fileError(path, "removed", errno);
    }

    std::optional<fs::path> trash(const fs::path& path) override;
    void create(const fs::path& path, std::string_view bytes) override;
    void replaceContents(const fs::path& path, std::string_view bytes) override;

    std::unique_ptr<AppendingFile> openForAppending(const fs::path& path) override {
        return std::make_unique<SystemAppendingFile>(path);
    }

    std::unique_ptr<KeptRoom> keepRoom(const fs::path& folder, std::uint64_t bytes) override {
        return UnnamedFile::ofLength(folder, bytes);
    }
};

std::string SystemFiles::read(const fs::path& path) const {
    const FileDescriptor file = openOrdinary(path, O_RDONLY, "read");
    std::string contents;
    std::array<char, 65536> part;
    for (;;) {
        const ssize_t length = ::read(file.get(), part.data(), part.size());
        if (length == 0) return contents;
        if (length < 0 && errno != EINTR) throw fileError(path, "read", errno);
        if (length > 0) contents.append(part.data(), static_cast<std::size_t>(length));
    }
}

/// Makes one folder in one that is there, for good.
void makeFolder(const fs::path& folder) {
    if (::mkdir(folder.c_str(), newFolderMode) == 0) {
        // Best effort: whoever needs to be sure flushes what goes into the folder.
        Flush::folder(folder.parent_path());
        return;
    }
    const int reason = errno;
    struct stat status {};
    const bool isThere = ::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    if (!isThere) throw folderError(folder, "made", reason);
}

void SystemFiles::createDirectories(const fs::path& folder) {
    std::vector<fs::path> missing;
    struct stat status {};
    fs::path level = folder.has_filename() ? folder : folder.parent_path();
    while (::stat(level.c_str(), &status) != 0 && errno == ENOENT) {
        missing.push_back(level);
        if (!level.has_relative_path()) break;
        level = level.parent_path();
        if (level.empty()) break;
    }
    if (missing.empty()) missing.push_back(folder);
    std::for_each(missing.rbegin(), missing.rend(), makeFolder);
}

void SystemFiles::move(const fs::path& from, const fs::path& to) {
    const int reason = ExclusiveRename::rename(from, to);
    if (reason == 0) return;
    if (reason != EXDEV) throw fileError(from, "moved", reason);

    copyFile(from, to, Durability::flushed);
    if (::unlink(from.c_str()) == 0 || errno == ENOENT) return;
    const int stays = errno;
    ::unlink(to.c_str());
    throw fileError(from, "moved", stays);
}

/// The reason alone, for whoever puts it behind the file's name.
Error trashError(const GIOFiles::Failure& failure) {
    if (!failure.errnoValue) return {Error::cocoaDomain, Error::fileReadUnknown, failure.words};
    const int reason = *failure.errnoValue;
    if (reason == ENOTSUP) return {Error::posixDomain, reason, "There is no trash for its volume"};
    return {Error::posixDomain, reason, std::generic_category().message(reason)};
}

std::optional<fs::path> SystemFiles::trash(const fs::path& path) {
    if (const auto failure = GIOFiles::trash(path)) throw trashError(*failure);
    // The system does not tell where the file lies now.
    return std::nullopt;
}

FileDescriptor openNew(const fs::path& path) {
    return FileDescriptor(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, newFileMode));
}

void SystemFiles::create(const fs::path& path, std::string_view bytes) {
    const auto require = [&](int errnoValue) {
        if (errnoValue != 0) throw fileError(path, "written", errnoValue);
    };
    const TemporaryName temporary(path.parent_path());
    {
        const FileDescriptor file = openNew(temporary.path());
        require(file.isOpen() ? writeAll(file.get(), bytes) : errno);
    }
    require(ExclusiveRename::rename(temporary.path(), path));
}

/// Answers 0, or the errno of what failed.
int writeFlushed(const fs::path& newFile, std::optional<mode_t> mode, std::string_view bytes) {
    const FileDescriptor file = openNew(newFile);
    if (!file.isOpen()) return errno;
    if (mode) ::fchmod(file.get(), *mode);
    if (const int failure = writeAll(file.get(), bytes)) return failure;
    return ::fsync(file.get()) == 0 ? 0 : errno;
}

void SystemFiles::replaceContents(const fs::path& path, std::string_view bytes) {
    const auto require = [&](int errnoValue) {
        if (errnoValue != 0) throw fileError(path, "written", errnoValue);
    };
    const auto old = statusOf(path);
    const bool keepsMode = old && S_ISREG(old->st_mode);
    const TemporaryName temporary(path.parent_path());
    require(writeFlushed(temporary.path(), keepsMode ? std::optional(old->st_mode) : std::nullopt,
                         bytes));
    require(::rename(temporary.path().c_str(), path.c_str()) == 0 ? 0 : errno);
    require(Flush::folder(path.parent_path()));
}

}  // namespace

std::shared_ptr<Files> Files::system() {
    static const auto files = std::make_shared<SystemFiles>();
    return files;
}

}  // namespace ornivo
