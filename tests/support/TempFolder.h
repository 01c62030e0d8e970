#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ornivo::testing {

/// A new empty folder that goes, with all it holds, at the end of its scope.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return path_ / name;
    }

private:
    std::filesystem::path path_;
};

/// Writes a file, making the folders above it. Answers its path.
std::filesystem::path writeFile(const std::filesystem::path& path, std::string_view contents);

/// The whole of a file; a missing one is a failure of the test and reads as empty.
std::string readFile(const std::filesystem::path& path);

/// The sample photographs and clips beside the checkout, or an empty path where they are missing.
std::filesystem::path sampleMedia();

}  // namespace ornivo::testing
