#pragma once

#include <string>

namespace ornivo::BirdClassifierLabels {

/// A species as a look-up answers it.
struct SpeciesMatch {
    std::string commonName;
    /// The raw label with blanks for its underscores.
    std::string scientificName;

    const std::string& id() const { return scientificName; }

    bool operator==(const SpeciesMatch&) const = default;
};

}  // namespace ornivo::BirdClassifierLabels
