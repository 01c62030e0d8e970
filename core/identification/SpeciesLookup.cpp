#include "identification/SpeciesLookup.h"

#include <algorithm>
#include <array>
#include <utility>

#include "identification/NameForms.h"
#include "platform/Text.h"

namespace ornivo::BirdClassifierLabels {
namespace {

constexpr std::size_t rankCount = 6;
constexpr std::size_t shortestQuery = 2;

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// As in `ornivo::beginsWith`, without splitting into characters where the bytes already differ.
bool begins(std::string_view text, std::string_view prefix) {
    return text.starts_with(prefix) && beginsWith(text, prefix);
}

bool anyWordBegins(std::string_view text, std::string_view prefix) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (begins(text.substr(0, end), prefix)) return true;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return false;
}

}  // namespace

SpeciesLookup::SpeciesLookup(CommonNames commonNames)
    : commonNames_(std::move(commonNames)), entries_(sortedEntries(commonNames_)) {
    // Of several labels with one common name the first stands for it, whichever was typed.
    std::unordered_map<std::string_view, std::size_t> byCommonName;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        byCommonName.try_emplace(entries_[i].match.commonName, i);
        looseIndex_.try_emplace(entries_[i].looseCommonName, i);
    }
    for (const Entry& entry : entries_) {
        looseIndex_.try_emplace(entry.looseScientificName, byCommonName.at(entry.match.commonName));
    }
}

std::vector<SpeciesLookup::Entry> SpeciesLookup::sortedEntries(const CommonNames& commonNames) {
    std::vector<Entry> entries;
    entries.reserve(commonNames.size());
    for (const auto& [label, name] : commonNames) {
        entries.push_back(
            {{name, replacing(label, '_', ' ')}, normalizeLoose(name), normalizeLoose(label)});
    }
    std::ranges::stable_sort(entries, plainTextLess, &Entry::looseCommonName);
    return entries;
}

std::string SpeciesLookup::displayName(const std::string& rawLabel) const {
    const std::string label = trimmed(rawLabel);
    if (label.empty()) return rawLabel;
    const auto known = commonNames_.find(label);
    return known == commonNames_.end() ? titleCased(label) : known->second;
}

std::optional<std::string> SpeciesLookup::canonicalCommonName(std::string_view typed) const {
    const Entry* const entry = find(typed);
    return entry ? std::optional(entry->match.commonName) : std::nullopt;
}

std::optional<SpeciesMatch> SpeciesLookup::species(std::string_view typed) const {
    const Entry* const entry = find(typed);
    return entry ? std::optional(entry->match) : std::nullopt;
}

const SpeciesLookup::Entry* SpeciesLookup::find(std::string_view typed) const {
    const std::string loose = normalizeLoose(typed);
    if (loose.empty()) return nullptr;
    const auto found = looseIndex_.find(loose);
    return found == looseIndex_.end() ? nullptr : &entries_[found->second];
}

std::vector<SpeciesMatch> SpeciesLookup::search(std::string_view query, int limit) const {
    const std::string loose = normalizeLoose(query);
    if (characters(loose).size() < shortestQuery) return {};

    // The entries are in the order wanted within a rank, so collecting them by rank sorts them.
    std::array<std::vector<const Entry*>, rankCount> byRank;
    for (const Entry& entry : entries_) {
        if (const auto found = rank(entry, loose)) byRank[*found].push_back(&entry);
    }
    const auto wanted = static_cast<std::size_t>(std::max(limit, 0));
    std::vector<SpeciesMatch> matches;
    for (const auto& ranked : byRank) {
        for (const Entry* entry : ranked) {
            if (matches.size() == wanted) return matches;
            matches.push_back(entry->match);
        }
    }
    return matches;
}

std::optional<std::size_t> SpeciesLookup::rank(const Entry& entry, const std::string& query) {
    const std::string& name = entry.looseCommonName;
    if (contains(name, query)) {
        if (name == query) return 0;
        if (begins(name, query)) return 1;
        if (anyWordBegins(name, query)) return 2;
        return 3;
    }
    if (begins(entry.looseScientificName, query)) return 4;
    if (contains(entry.looseScientificName, query)) return 5;
    return std::nullopt;
}

}  // namespace ornivo::BirdClassifierLabels
