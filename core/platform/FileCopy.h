#pragma once

#include <filesystem>

#include "platform/Files.h"

namespace ornivo {

/// Copies an ordinary file under a name that must be free, as `Files::copy` promises. Raises
/// `Error`, also for what is no ordinary file and for one that changes meanwhile.
void copyFile(const std::filesystem::path& from, const std::filesystem::path& to,
              Durability durability);

}  // namespace ornivo
