#pragma once

#include <filesystem>
#include <optional>

namespace ornivo {

/// Whether a copy into `folder` shares its data blocks with an original below `source`, as the file
/// system answers when it is asked for just that: for a file without a name in `folder` that shares
/// the blocks of the first file below `source`, or of another such file where there is none.
/// Nothing of it is left. Absent where the file system can't be asked so, as in a folder that may
/// not be written in.
std::optional<bool> clonesWhenAsked(const std::filesystem::path& source,
                                    const std::filesystem::path& folder);

}  // namespace ornivo
