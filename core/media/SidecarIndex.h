#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "media/Sidecars.h"
#include "platform/Files.h"

namespace ornivo {

/// Remembers the companion files of each folder, so that a run lists a folder once. What changes
/// in a folder afterwards goes unseen until its entry is removed. Used by one caller at a time.
struct SidecarIndex {
    /// By the standardised path of the folder.
    std::map<std::string, Sidecars::Listing> listings;

    /// The companions of a photograph, in plain text order. A folder that cannot be listed has
    /// none, and is not asked again.
    std::vector<Sidecars::Companion> companions(const std::filesystem::path& photo,
                                                const Files& files);

    /// Has the folder listed anew at the next question.
    void forget(const std::filesystem::path& folder);
};

}  // namespace ornivo
