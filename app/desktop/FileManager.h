#pragma once

#include <filesystem>

namespace ornivo::app {

/// The desktop's viewer of files.
class FileManager {
public:
    virtual ~FileManager() = default;

    virtual void reveal(const std::filesystem::path& folder) = 0;
};

}  // namespace ornivo::app
