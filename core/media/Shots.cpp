#include "media/Shots.h"

#include <algorithm>
#include <unordered_map>

#include "media/FileScanner.h"
#include "media/VideoDecoder.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace ornivo::Shots {
namespace {

namespace fs = std::filesystem;

/// Makes the keys of files one after the other. Files of one folder mostly come together, so the
/// last folder's path is kept.
class KeyMaker {
public:
    /// The same for two files exactly when folder and stem are. The stem's case does not count.
    std::string key(const fs::path& file) {
        const fs::path parent = file.parent_path();
        if (parent != parent_ || standardized_.empty()) {
            parent_ = parent;
            standardized_ = standardized(parent).native();
        }
        const std::string stem = deletingPathExtension(lastPathComponent(file));
        return standardized_ + '/' + canonicallyComposed(lowercased(stem));
    }

private:
    fs::path parent_;
    std::string standardized_;
};

/// Whether at least two of RAW, clip and ordinary picture are among the files.
bool areOneShot(const std::vector<fs::path>& files, const std::vector<std::size_t>& members) {
    bool hasRaw = false;
    bool hasClip = false;
    bool hasPicture = false;
    for (const std::size_t member : members) {
        const std::string extension = lowercasedExtension(files[member]);
        const bool isRaw = rawExtensions().contains(extension);
        const bool isClip = VideoDecoder::videoExtensions().contains(extension);
        hasRaw |= isRaw;
        hasClip |= isClip;
        hasPicture |= !isRaw && !isClip;
    }
    return int{hasRaw} + int{hasClip} + int{hasPicture} >= 2;
}

}  // namespace

Grouping group(const std::vector<fs::path>& files) {
    std::unordered_map<std::string, std::vector<std::size_t>> buckets;
    KeyMaker keys;
    for (std::size_t i = 0; i < files.size(); ++i) buckets[keys.key(files[i])].push_back(i);

    Grouping grouping;
    for (const auto& [key, members] : buckets) {
        if (members.size() < 2 || !areOneShot(files, members)) continue;
        const auto firstFollower = members.begin() + 1;
        grouping.partners[members.front()].assign(firstFollower, members.end());
        grouping.followers.insert(firstFollower, members.end());
    }
    return grouping;
}

Listing::Listing(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        if (!FileScanner::mediaExtensions().contains(lowercasedExtension(name))) continue;
        namesByStem_.emplace(caselessForm(deletingPathExtension(name)), name);
    }
}

std::vector<std::string> Listing::namesBeside(std::string_view photoName) const {
    const std::string stem = deletingPathExtension(photoName);
    if (stem.empty()) return {};

    std::vector<std::string> siblings;
    const auto [first, last] = namesByStem_.equal_range(caselessForm(stem));
    for (auto found = first; found != last; ++found) {
        if (!equalIgnoringCase(found->second, photoName)) siblings.push_back(found->second);
    }
    std::ranges::stable_sort(siblings, plainTextLess);
    return siblings;
}

std::vector<std::string> siblingNames(std::string_view photoName,
                                      const std::vector<std::string>& names) {
    return Listing(names).namesBeside(photoName);
}

const std::set<std::string, std::less<>>& rawExtensions() {
    static const std::set<std::string, std::less<>> extensions{"raw", "cr2", "cr3", "nef",
                                                               "arw", "dng", "orf", "rw2"};
    return extensions;
}

}  // namespace ornivo::Shots
