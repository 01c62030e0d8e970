#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// What stands in on the review page for a file that no browser shows.
namespace ornivo::Poster {

/// The longer side of a poster in pixels, at most.
inline constexpr int maxDimension = 1600;

/// Whether every browser shows a picture of this kind, by its extension. Of clips it can't be told
/// so.
bool isShownPicture(const std::filesystem::path& file);

/// A shot's poster as a JPEG file, as `PosterFolder` keeps it: upright, in sRGB. It shows the first
/// of the files that gives a picture, of a clip one from its first third. Absent where none is
/// needed, as with a first file that browsers show or any that is a shown picture, and where none
/// can be made. Raises nothing. May be called from any thread.
std::optional<std::string> make(const std::vector<std::filesystem::path>& shot);

/// The room, in bytes, that the posters of a run over these files may take: all of them uncertain,
/// and none with a picture beside it that browsers show.
std::int64_t roomFor(const std::vector<std::filesystem::path>& files);

}  // namespace ornivo::Poster
