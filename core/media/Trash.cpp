#include "media/Trash.h"

#include <utility>

#include "platform/Paths.h"
#include "platform/Text.h"

namespace ornivo::Trash {

Failure::Failure(std::string path, std::string reason)
    : Error("Trash.Failure", 0, "Kept " + path + " — couldn't move it to the Trash: " + reason),
      path_(std::move(path)),
      reason_(std::move(reason)) {}

Failure Failure::notTrashable(const std::string& path, const std::string& reason) {
    return {path, reason};
}

std::optional<std::filesystem::path> trash(const std::filesystem::path& url, Files& files) {
    try {
        return files.trash(url);
    } catch (const Error& error) {
        throw Failure::notTrashable(wellFormed(lastPathComponent(url)),
                                    error.localizedDescription());
    }
}

}  // namespace ornivo::Trash
