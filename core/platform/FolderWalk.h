#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

namespace ornivo {

/// One thing found inside a folder.
struct FolderEntry {
    std::filesystem::path path;
    bool isDirectory = false;
    bool isRegularFile = false;
    /// Bytes the file takes up on its volume; a sparse or compressed file takes fewer than its
    /// length.
    std::int64_t allocatedBytes = 0;
};

/// What to do with a folder that a walk has come to.
enum class Descent { enter, skip };

/// Walks everything below `folder`, depth first, the entries of one folder in plain text order, so
/// that two walks of an unchanged folder are alike. Links are reported as neither file nor folder
/// and are not followed; a folder that cannot be read, `folder` itself included, is passed over.
/// The visitor's answer counts for folders only.
void walkFolder(const std::filesystem::path& folder,
                const std::function<Descent(const FolderEntry&)>& visit);

}  // namespace ornivo
