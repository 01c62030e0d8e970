#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "identification/CommonNames.h"
#include "identification/SpeciesMatch.h"

namespace ornivo::BirdClassifierLabels {

/// Finds species by their names as people write them. Built once from a table and never changed,
/// so any number of threads may ask at once.
class SpeciesLookup {
public:
    explicit SpeciesLookup(CommonNames commonNames);

    const CommonNames& commonNames() const { return commonNames_; }

    /// The common name of a raw label; of a label that is not in the table, its own words in title
    /// case.
    std::string displayName(const std::string& rawLabel) const;

    /// The common name, as the table spells it, of a species typed by either of its names.
    std::optional<std::string> canonicalCommonName(std::string_view typed) const;

    /// The species typed by either of its names.
    std::optional<SpeciesMatch> species(std::string_view typed) const;

    /// Up to `limit` species for what has been typed so far, from two characters on. Those whose
    /// common name it is or begins come first, then those with a word that begins so, then those
    /// that merely hold it; matches on the scientific name come last.
    std::vector<SpeciesMatch> search(std::string_view query, int limit) const;

private:
    struct Entry {
        SpeciesMatch match;
        std::string looseCommonName;
        std::string looseScientificName;
    };

    static std::vector<Entry> sortedEntries(const CommonNames& commonNames);
    static std::optional<std::size_t> rank(const Entry& entry, const std::string& query);

    const Entry* find(std::string_view typed) const;

    CommonNames commonNames_;
    /// By loose common name, equals by raw label.
    std::vector<Entry> entries_;
    /// Loose form of either name to an index in `entries_`.
    std::unordered_map<std::string, std::size_t> looseIndex_;
};

}  // namespace ornivo::BirdClassifierLabels
