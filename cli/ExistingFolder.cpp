#include "cli/ExistingFolder.h"

#include <string>
#include <system_error>

#include "cli/UsageError.h"

namespace ornivo::cli {

namespace fs = std::filesystem;

fs::path existingFolder(const fs::path& path) {
    const std::string quoted = "\"" + path.string() + "\"";
    std::error_code failure;
    const fs::path real = fs::canonical(path, failure);
    if (path.empty() || failure == std::errc::no_such_file_or_directory) {
        throw UsageError("There is no folder " + quoted + ".");
    }
    if (failure) throw UsageError(quoted + " can't be read: " + failure.message() + ".");
    if (!fs::is_directory(real, failure)) throw UsageError(quoted + " is not a folder.");
    return real;
}

}  // namespace ornivo::cli
