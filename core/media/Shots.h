#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Tells which files of a list are one shot: an exposure that the camera wrote as a RAW file and
/// a picture, or as either and a clip.
namespace ornivo::Shots {

/// Indexes into the list that was grouped. A file that is alone appears nowhere.
struct Grouping {
    /// The leading file of each shot, the first in the list, and its other files, ascending.
    std::map<std::size_t, std::vector<std::size_t>> partners;
    /// Every file that is not the leading one of its shot.
    std::set<std::size_t> followers;

    /// Shots of more than one file.
    std::size_t shotCount() const { return partners.size(); }

    bool operator==(const Grouping&) const = default;
};

/// Files of one folder are a shot when their names differ in the extension and the case alone and
/// at least two of RAW, ordinary picture and clip are among them.
Grouping group(const std::vector<std::filesystem::path>& files);

/// The media files of one folder, found by their photograph without a look at all of them.
class Listing {
public:
    /// Takes the media files out of all the names in a folder.
    explicit Listing(const std::vector<std::string>& names);

    /// Those that share the photograph's name up to the extension, in plain text order; of
    /// whatever kinds. Case does not count.
    std::vector<std::string> namesBeside(std::string_view photoName) const;

private:
    /// Names under the caseless form of what is before their extension.
    std::multimap<std::string, std::string, std::less<>> namesByStem_;
};

/// The same for one photograph among the names in its folder.
std::vector<std::string> siblingNames(std::string_view photoName,
                                      const std::vector<std::string>& names);

/// The extensions of RAW files, in lower case.
const std::set<std::string, std::less<>>& rawExtensions();

}  // namespace ornivo::Shots
