#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

namespace ornivo::testing {

/// A real file system of few bytes, in memory, that can be filled up. Goes at the end of its
/// scope with all it holds.
class SmallDisk {
public:
    /// Absent where the machine lets this user mount nothing: the test is skipped by name then.
    static std::unique_ptr<SmallDisk> mount(std::int64_t bytes);

    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return path_ / name;
    }

    /// Bytes that can still be written.
    std::int64_t freeBytes() const;

    /// From now on nothing on it can change, for root neither. Nothing may be open for writing.
    bool makeReadOnly();

private:
    explicit SmallDisk(std::filesystem::path path) : path_(std::move(path)) {}

    std::filesystem::path path_;
};

}  // namespace ornivo::testing
