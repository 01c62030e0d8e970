#pragma once

#include <filesystem>
#include <string_view>

#include "platform/Error.h"

namespace ornivo {

/// A system call on a file failed. `done` is what could not be done to it:
/// `"IMG_1.jpg" couldn't be copied: No space left on device`.
Error fileError(const std::filesystem::path& file, std::string_view done, int errnoValue);

/// The same where no system call failed, with the reason in words.
Error fileError(const std::filesystem::path& file, std::string_view done, std::string_view reason);

/// `The folder "Bald Eagle" couldn't be made: Permission denied`.
Error folderError(const std::filesystem::path& folder, std::string_view done, int errnoValue);

}  // namespace ornivo
