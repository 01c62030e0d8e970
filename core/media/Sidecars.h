#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Companion files: what RAW converters and photo editors keep beside a photograph, under its
/// name. Their contents are nobody's business here.
namespace ornivo::Sidecars {

/// The extensions of companion files, in lower case.
const std::set<std::string, std::less<>>& extensions();

struct CompanionName {
    std::string name;
    /// Named after the photograph's whole name (IMG_1.CR2.xmp) rather than its stem (IMG_1.xmp).
    bool wholeName;

    bool operator==(const CompanionName&) const = default;
};

struct Companion {
    std::filesystem::path url;
    bool matchedWholeName;

    /// The companion's name beside the photograph's new one: the form of the link and the
    /// companion's own extension stay.
    std::string destinationName(std::string_view newPhotoName) const;

    bool operator==(const Companion&) const = default;
};

/// The companion files of one folder, found by their photograph without a look at all of them.
class Listing {
public:
    /// Takes the companions out of all the names in a folder.
    explicit Listing(const std::vector<std::string>& names);

    /// In plain text order. Case does not count.
    std::vector<CompanionName> companionNames(std::string_view photoName) const;

private:
    /// Names under the caseless form of what is before their extension.
    std::multimap<std::string, std::string, std::less<>> namesByBase_;
};

/// The companions of one photograph among the names in its folder.
std::vector<CompanionName> companionNames(std::string_view photoName,
                                          const std::vector<std::string>& names);

}  // namespace ornivo::Sidecars
