#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "cli/Program.h"
#include "support/TempFolder.h"

namespace ornivo::testing {

/// A source with photographs and a destination that is still missing. The photographs are of
/// nothing, so that no call on them is ever confirmed.
class SortScene {
    // First, since the folders lie in it.
    TempFolder folder_;

public:
    const std::filesystem::path in = folder_ / "in";
    const std::filesystem::path out = folder_ / "out";

    /// Adds a photograph to the source. Answers its path.
    std::filesystem::path addPhoto(const std::string& name) const;

    /// Adds so many photographs, IMG_0001.jpg and on.
    void addPhotos(int count) const;

    /// Copies so many of the sample photographs of birds to the source; false without samples.
    bool addBirds(int count) const;

    /// The command line that sorts the scene, with more arguments behind.
    Arguments sorting(const Arguments& more = {}) const;

    /// The ordinary files below a folder, relative to it; a missing folder has none.
    static std::set<std::string> filesIn(const std::filesystem::path& folder);
};

/// The lines of a text.
std::vector<std::string> linesOf(const std::string& text);

}  // namespace ornivo::testing
