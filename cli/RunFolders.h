#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace ornivo::cli {

/// The two folders of a run, found good and made absolute, without links.
struct RunFolders {
    std::filesystem::path source;
    std::filesystem::path destination;
    /// Where the destination is reached by way of the source, if it lies inside it.
    std::optional<std::filesystem::path> destinationInSource;
};

/// Looks at the folders as the user named them. Raises `UsageError` for a source that isn't a
/// folder that can be read, for a destination that can't be written in, and for two names of one
/// folder.
RunFolders resolveFolders(const std::filesystem::path& source,
                          const std::filesystem::path& destination);

/// The source alone, where there is no destination yet.
std::filesystem::path resolveSource(const std::filesystem::path& source);

/// Those of the files, in their order, that don't lie in the folder.
std::vector<std::filesystem::path> filesOutside(const std::filesystem::path& folder,
                                                std::vector<std::filesystem::path> files);

}  // namespace ornivo::cli
