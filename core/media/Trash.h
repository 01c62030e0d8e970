#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/Error.h"
#include "platform/Files.h"

/// Puts source files away so that the user can get them back.
namespace ornivo::Trash {

/// A file stayed where it was. The description is what the user reads.
class Failure : public Error {
public:
    /// `path` is the file's last path component; `reason` is the platform's words.
    static Failure notTrashable(const std::string& path, const std::string& reason);

    const std::string& path() const { return path_; }
    const std::string& reason() const { return reason_; }

private:
    Failure(std::string path, std::string reason);

    std::string path_;
    std::string reason_;
};

/// Moves a file to the system's trash and answers where it lies there, if the system tells.
/// Raises `Failure`.
std::optional<std::filesystem::path> trash(const std::filesystem::path& url, Files& files);

}  // namespace ornivo::Trash
