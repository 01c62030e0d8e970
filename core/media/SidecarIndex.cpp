#include "media/SidecarIndex.h"

#include "platform/Paths.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

std::string keyOf(const fs::path& folder) {
    return standardized(folder).native();
}

}  // namespace

std::vector<Sidecars::Companion> SidecarIndex::companions(const fs::path& photo,
                                                          const Files& files) {
    const fs::path folder = photo.parent_path();
    const std::string key = keyOf(folder);
    auto listing = listings.find(key);
    if (listing == listings.end()) {
        listing = listings.emplace(key, Sidecars::Listing(namesOrNone(folder, files))).first;
    }

    std::vector<Sidecars::Companion> result;
    for (const auto& [name, wholeName] : listing->second.companionNames(lastPathComponent(photo))) {
        result.push_back({folder / name, wholeName});
    }
    return result;
}

void SidecarIndex::forget(const fs::path& folder) {
    listings.erase(keyOf(folder));
}

}  // namespace ornivo
