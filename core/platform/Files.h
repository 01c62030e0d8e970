#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ornivo {

/// Whether a copy must have reached the disk, or may still lie in the system's cache, when the
/// call returns.
enum class Durability { cached, flushed };

/// A file open for adding to its end. Closed by its destructor.
class AppendingFile {
public:
    virtual ~AppendingFile() = default;

    /// Adds the bytes in one piece, or none of them. Raises `Error`.
    virtual void write(std::string_view bytes) = 0;
};

/// Room on a disk that nobody else can take. Given back by its destructor.
class KeptRoom {
public:
    virtual ~KeptRoom() = default;
};

/// Everything a run does to the disk goes through this seam, so that tests can fill it up, make
/// its n-th call fail, or only pretend. One implementation touches real files: `system()`.
///
/// No operation follows a link in the last component of a path, and none ever replaces a file
/// that it did not write itself, but for `replaceContents`. A failure raises `Error`; one of a
/// system call keeps the domain `Error::posixDomain` and its errno as code.
/// All operations may be called from any thread.
class Files {
public:
    /// The real file system.
    static std::shared_ptr<Files> system();

    virtual ~Files() = default;

    /// Whether what is asked for is done on the disk; files that only pretend answer false.
    virtual bool changesDisk() const { return true; }

    /// Whether anything has this name: a file, a folder, or a link, dangling or not.
    virtual bool exists(const std::filesystem::path& path) const = 0;

    /// Whether a folder has this name; a link to one is none.
    virtual bool isFolder(const std::filesystem::path& path) const = 0;

    /// The names in a folder, hidden ones included, in plain text order.
    virtual std::vector<std::string> namesIn(const std::filesystem::path& folder) const = 0;

    /// Absent when the file cannot be asked.
    virtual std::optional<std::time_t> modificationTime(
        const std::filesystem::path& path) const = 0;

    /// The whole file.
    virtual std::string read(const std::filesystem::path& path) const = 0;

    /// Makes the folder and those above it that are missing. One that is there, or a link to one,
    /// is no failure.
    virtual void createDirectories(const std::filesystem::path& folder) = 0;

    /// Copies a file under a name that must be free, with its modification time, permissions and
    /// extended attributes. The final name appears only once the copy is complete, and a failed
    /// copy leaves nothing behind. Shares the data blocks where the file system can. Links,
    /// folders and pipes are not copied, nor is a file that changes meanwhile.
    virtual void copy(const std::filesystem::path& from, const std::filesystem::path& to,
                      Durability durability) = 0;

    /// Renames a file to a name that must be free; across volumes, copies and then removes it.
    virtual void move(const std::filesystem::path& from, const std::filesystem::path& to) = 0;

    /// Removes one file.
    virtual void remove(const std::filesystem::path& path) = 0;

    /// Moves a file to the system's trash, from which the user can get it back. Answers where it
    /// lies there, if the system tells. The words of a failure are the reason alone.
    virtual std::optional<std::filesystem::path> trash(const std::filesystem::path& path) = 0;

    /// Writes a new file under a name that must be free. The name appears only once the file is
    /// complete, and a failure leaves nothing behind. It may still lie in the system's cache.
    virtual void create(const std::filesystem::path& path, std::string_view bytes) = 0;

    /// Writes the whole file so that a reader sees the old contents or the new, never a part.
    virtual void replaceContents(const std::filesystem::path& path, std::string_view bytes) = 0;

    /// Opens a file at its end, making it if it is missing.
    virtual std::unique_ptr<AppendingFile> openForAppending(const std::filesystem::path& path) = 0;

    /// Keeps bytes of the volume on which the folder stands, or would be made, for what must be
    /// written there even when it has filled up. Nothing of it is seen in any folder, and it does
    /// not outlive the process. Null when there is not that much room, or none can be kept there.
    virtual std::unique_ptr<KeptRoom> keepRoom(const std::filesystem::path& folder,
                                               std::uint64_t bytes) = 0;
};

/// The names in a folder, as `namesIn` answers them; one that can't be listed has none. An empty
/// path is the current folder.
std::vector<std::string> namesOrNone(const std::filesystem::path& folder, const Files& files);

}  // namespace ornivo
