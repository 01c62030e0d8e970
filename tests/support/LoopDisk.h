#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "support/TempFolder.h"

namespace ornivo::testing {

/// A real file system of a chosen kind in a sparse file, mounted for the scope of the object. It
/// has room for some 200 megabytes and keeps none of it back for the administrator.
class LoopDisk {
public:
    enum class Kind { ext4, btrfs, xfs, xfsWithoutReflinks };

    /// Absent where the machine lacks the program that makes such a file system, or lets this user
    /// mount none: the test is skipped by name then.
    static std::unique_ptr<LoopDisk> mount(Kind kind);

    ~LoopDisk();
    LoopDisk(const LoopDisk&) = delete;
    LoopDisk& operator=(const LoopDisk&) = delete;

    std::filesystem::path path() const { return folder_ / mountName; }
    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return path() / name;
    }

    /// Bytes that can still be written, once all that waits to be written has been.
    std::int64_t freeBytes() const;

    /// Makes a subvolume of a btrfs, which looks like a folder with a device number of its own.
    /// Answers its path.
    std::filesystem::path makeSubvolume(const std::string& name) const;

    /// Makes a folder of a btrfs whose files are changed in place and so share no blocks with
    /// others. Answers its path.
    std::filesystem::path makeFolderOfFilesKeptInPlace(const std::string& name) const;

    /// The name of the folder that it is mounted on. Has a blank in it.
    static constexpr const char* mountName = "Bird disk";

private:
    LoopDisk() = default;
    bool make(Kind kind) const;

    TempFolder folder_;
    bool isMounted_ = false;
};

}  // namespace ornivo::testing
