#include "media/Sidecars.h"

#include <algorithm>

#include "platform/Paths.h"
#include "platform/Text.h"

namespace ornivo::Sidecars {

const std::set<std::string, std::less<>>& extensions() {
    static const std::set<std::string, std::less<>> extensions{"xmp", "aae", "dop", "pp3",
                                                               "on1", "cos", "nksc"};
    return extensions;
}

std::string Companion::destinationName(std::string_view newPhotoName) const {
    const std::string base =
        matchedWholeName ? std::string(newPhotoName) : deletingPathExtension(newPhotoName);
    return base + '.' + pathExtension(lastPathComponent(url));
}

Listing::Listing(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        if (!extensions().contains(lowercasedExtension(name))) continue;
        namesByBase_.emplace(caselessForm(deletingPathExtension(name)), name);
    }
}

std::vector<CompanionName> Listing::companionNames(std::string_view photoName) const {
    const std::string stem = deletingPathExtension(photoName);
    if (stem.empty()) return {};

    std::vector<CompanionName> result;
    const auto collect = [&](const std::string& base, bool wholeName) {
        const auto [first, last] = namesByBase_.equal_range(base);
        for (auto found = first; found != last; ++found) {
            result.push_back({found->second, wholeName});
        }
    };
    const std::string wholeBase = caselessForm(photoName);
    const std::string stemBase = caselessForm(stem);
    collect(wholeBase, true);
    if (stemBase != wholeBase) collect(stemBase, false);
    std::ranges::stable_sort(result, plainTextLess, &CompanionName::name);
    return result;
}

std::vector<CompanionName> companionNames(std::string_view photoName,
                                          const std::vector<std::string>& names) {
    return Listing(names).companionNames(photoName);
}

}  // namespace ornivo::Sidecars
