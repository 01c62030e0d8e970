#pragma once

#include <string>

namespace ornivo {

/// A species chosen by the user in Find mode. Either name may be empty.
struct BirdSpecies {
    std::string commonName;
    std::string scientificName;

    /// Identifies the species in lists: both names joined by "|", in lower case, trimmed.
    std::string id() const;

    /// The common name, or the scientific one where there is none.
    const std::string& displayName() const {
        return commonName.empty() ? scientificName : commonName;
    }

    bool operator==(const BirdSpecies&) const = default;
};

}  // namespace ornivo
