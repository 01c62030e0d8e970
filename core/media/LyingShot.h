#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "media/Sidecars.h"
#include "platform/Files.h"

namespace ornivo {

/// A shot as its files lie together in one folder.
struct LyingShot {
    struct File {
        std::string name;
        std::vector<Sidecars::Companion> companions;
    };

    std::filesystem::path folder;
    File leader;
    /// The other files of the shot.
    std::vector<File> siblings;

    /// Moves the shot to another folder, which is there, under names that are free; companions
    /// stay named after their file. Answers where the leading file lies now. Raises `Error` if it
    /// could not be moved, and then nothing has been. What fails to follow it stays behind.
    std::filesystem::path moveTo(const std::filesystem::path& target, Files& files) const;
};

}  // namespace ornivo
