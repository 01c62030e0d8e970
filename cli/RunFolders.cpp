#include "cli/RunFolders.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "cli/UsageError.h"
#include "platform/Paths.h"

namespace ornivo::cli {

namespace {

namespace fs = std::filesystem;

std::string quoted(const fs::path& path) {
    return "\"" + path.string() + "\"";
}

std::string reason(int errnoValue) {
    return std::generic_category().message(errnoValue) + ".";
}

/// Answers 0, or the errno that says why not.
int accessFailure(const fs::path& path, int mode) {
    return ::access(path.c_str(), mode) == 0 ? 0 : errno;
}

fs::path resolved(const fs::path& path) {
    std::error_code failure;
    const fs::path real = fs::weakly_canonical(path, failure);
    return standardized(failure ? path : real);
}

void checkSource(const fs::path& source) {
    std::error_code failure;
    const auto status = fs::status(source, failure);
    if (fs::is_regular_file(status)) {
        throw UsageError(quoted(source) +
                         " is a file. Name the folder that it lies in: every photograph and clip "
                         "of that folder is taken.");
    }
    if (status.type() == fs::file_type::not_found) {
        throw UsageError("There is no folder " + quoted(source) + ".");
    }
    if (failure) throw UsageError(quoted(source) + " can't be read: " + reason(failure.value()));
    if (!fs::is_directory(status)) throw UsageError(quoted(source) + " is not a folder.");
    if (const int denied = accessFailure(source, R_OK | X_OK)) {
        throw UsageError(quoted(source) + " can't be read: " + reason(denied));
    }
}

/// The folder itself, or else the nearest one above it whose name is taken, be it by a link that
/// leads nowhere: no folder can be made behind that.
fs::path nearestTaken(fs::path folder) {
    std::error_code failure;
    while (!fs::exists(fs::symlink_status(folder, failure)) && folder.has_relative_path()) {
        folder = folder.parent_path();
    }
    return folder;
}

void checkDestination(const fs::path& destination) {
    const fs::path existing = nearestTaken(destination);
    std::error_code failure;
    if (!fs::is_directory(existing, failure)) {
        throw UsageError(quoted(existing) + " is not a folder, so nothing can be filed into it.");
    }
    if (const int denied = accessFailure(existing, W_OK | X_OK)) {
        throw UsageError("Nothing can be written in " + quoted(existing) + ": " + reason(denied));
    }
}

/// The path of `folder` relative to `ancestor`, "." for itself; absent where it lies elsewhere.
/// Goes by what the folders are, not by their names: one folder may be mounted twice.
std::optional<fs::path> pathInside(const fs::path& folder, const fs::path& ancestor) {
    for (fs::path above = folder;; above = above.parent_path()) {
        std::error_code failure;
        if (fs::equivalent(above, ancestor, failure)) return folder.lexically_relative(above);
        if (!above.has_relative_path()) return std::nullopt;
    }
}

}  // namespace

fs::path resolveSource(const fs::path& source) {
    checkSource(source);
    return resolved(source);
}

RunFolders resolveFolders(const fs::path& source, const fs::path& destination) {
    RunFolders folders{resolveSource(source), resolved(destination), std::nullopt};
    checkDestination(folders.destination);

    const auto inside = pathInside(folders.destination, folders.source);
    if (!inside) return folders;
    if (*inside == ".") {
        throw UsageError(
            "The source and the destination are the same folder, so that what has been filed "
            "would be filed again. Name another destination.");
    }
    folders.destinationInSource = folders.source / *inside;
    return folders;
}

std::vector<fs::path> filesOutside(const fs::path& folder, std::vector<fs::path> files) {
    const auto liesInside = [&folder](const fs::path& file) {
        const auto [inFolder, inFile] =
            std::mismatch(folder.begin(), folder.end(), file.begin(), file.end());
        return inFolder == folder.end();
    };
    std::erase_if(files, liesInside);
    return files;
}

}  // namespace ornivo::cli
