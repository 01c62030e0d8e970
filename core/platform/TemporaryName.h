#pragma once

#include <filesystem>

namespace ornivo {

/// A hidden, unused name in a folder for a file that is not complete yet. What still has the name
/// at the end of its scope is removed.
class TemporaryName {
public:
    explicit TemporaryName(const std::filesystem::path& folder);
    ~TemporaryName();
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace ornivo
