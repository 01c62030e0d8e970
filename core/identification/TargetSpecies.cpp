#include "identification/TargetSpecies.h"

#include <array>
#include <optional>
#include <utility>

#include "identification/BirdClassifierLabels.h"
#include "platform/Text.h"

namespace ornivo::TargetSpecies {
namespace {

/// In the order in which they are tried.
constexpr std::array<std::string_view, 4> separators{"|", " - ", " -- ", ";"};

std::optional<BirdSpecies> inBrackets(std::string_view text) {
    const auto open = text.rfind('(');
    const auto close = text.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
        return std::nullopt;
    }
    return BirdSpecies{trimmed(text.substr(0, open)),
                       trimmed(text.substr(open + 1, close - open - 1))};
}

/// The text between separators, trimmed, without empty pieces.
std::vector<std::string> pieces(std::string_view text, std::string_view separator) {
    std::vector<std::string> result;
    for (;;) {
        const auto end = text.find(separator);
        std::string piece = trimmed(text.substr(0, end));
        if (!piece.empty()) result.push_back(std::move(piece));
        if (end == std::string_view::npos) return result;
        text.remove_prefix(end + separator.size());
    }
}

}  // namespace

BirdSpecies parse(std::string_view typed) {
    const std::string text = trimmed(typed);
    if (auto species = inBrackets(text)) return *species;
    for (const auto separator : separators) {
        const auto names = pieces(text, separator);
        if (names.size() >= 2) return {names[0], names[1]};
    }
    return {text, ""};
}

BirdSpecies resolved(const BirdSpecies& species) {
    auto match = BirdClassifierLabels::species(species.commonName);
    if (!match) match = BirdClassifierLabels::species(species.scientificName);
    return match ? BirdSpecies{match->commonName, match->scientificName} : species;
}

bool isKnown(const BirdSpecies& species) {
    return BirdClassifierLabels::canonicalCommonName(species.commonName) ||
           BirdClassifierLabels::canonicalCommonName(species.scientificName);
}

std::string unrecognisedMessage(const std::vector<BirdSpecies>& unrecognised, int count) {
    if (unrecognised.empty()) return {};
    std::string names;
    for (const BirdSpecies& species : unrecognised) {
        names += (names.empty() ? "" : ", ") + species.displayName();
    }
    const std::string known = std::to_string(count);
    return unrecognised.size() == 1
               ? names + " is not one of the " + known +
                     " species this build can recognise — a search for it will find nothing."
               : names + " are not among the " + known +
                     " species this build can recognise — a search for them will find nothing.";
}

}  // namespace ornivo::TargetSpecies
