#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include "media/LyingShot.h"
#include "platform/Files.h"

namespace ornivo {

/// The posters of one `_Uncertain`: small pictures, in a hidden folder beside the review page, of
/// those shots whose own files no browser shows. Each is named after its shot's file and says of
/// itself that it was written here, so that no file of anybody else is ever taken for one.
class PosterFolder {
public:
    static constexpr const char* name = ".review-pictures";

    /// Neither `files` nor anything on the disk is asked yet.
    PosterFolder(const std::filesystem::path& uncertain, Files& files)
        : path_(uncertain / name), files_(files) {}

    /// The poster's name for a file in `_Uncertain`.
    static std::string nameFor(std::string_view fileName);

    /// Where that poster lies, as seen from `_Uncertain`.
    static std::string pathFor(std::string_view fileName);

    /// A JPEG as it is kept: with a comment that holds the digest of everything else in it.
    static std::string marked(std::string_view jpeg);

    /// Whether these are the bytes of a whole poster as `marked` made it.
    static bool isPoster(std::string_view bytes);

    /// Keeps a marked JPEG as the poster of a file, in place of an older poster but of nothing
    /// else. Raises `Error`, also where somebody else's file has the name.
    void write(std::string_view fileName, std::string_view marked);

    /// Removes the poster of a shot that has left the folder, whichever of its files it was made
    /// for. What can't be removed stays.
    void remove(const LyingShot& shot);

    /// Removes all posters but those at these paths, as `pathFor` gives them.
    void removeAllBut(const std::set<std::string>& paths);

private:
    void removeIfPoster(const std::filesystem::path& file);

    std::filesystem::path path_;
    Files& files_;
};

}  // namespace ornivo
