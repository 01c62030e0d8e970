#include "platform/Files.h"

#include "platform/Error.h"

namespace ornivo {

std::vector<std::string> namesOrNone(const std::filesystem::path& folder, const Files& files) {
    try {
        return files.namesIn(folder.empty() ? "." : folder);
    } catch (const Error&) {
        return {};
    }
}

}  // namespace ornivo
