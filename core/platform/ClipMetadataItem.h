#pragma once

#include <string>

namespace ornivo {

/// One fact that a clip states about itself, under the key that the file gives it.
struct ClipMetadataItem {
    /// The key of the position where it stands in QuickTime's user data.
    static constexpr const char* userDataPosition = "\u00a9xyz";

    std::string key;
    std::string text;

    bool operator==(const ClipMetadataItem&) const = default;
};

}  // namespace ornivo
