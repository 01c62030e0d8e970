#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "identification/CommonNames.h"
#include "identification/NameForms.h"
#include "identification/SpeciesMatch.h"
#include "vocabulary/IdentifiedSpecies.h"

namespace ornivo {

/// Translates between the classifier's raw labels and the names people use, by the common-name
/// table that ships with the program. Without the table everything is unknown. The table is read
/// on first use; every operation may be called from any thread.
namespace BirdClassifierLabels {

/// The table itself, raw label to common name.
const CommonNames& commonNames();

/// Species in the table.
int speciesCount();

/// The common name of a raw label; of an unknown label, its own words in title case. A label of
/// nothing but white space is answered as it is.
std::string displayName(const std::string& rawLabel);

/// "High" from a fifth above the gate on, at most from 0.95; "Good" from the gate on; else "Low".
std::string confidenceLabel(double confidence, double gate);

/// The common name, as the table spells it, of a species typed by its common or scientific name.
std::optional<std::string> canonicalCommonName(std::string_view typed);

/// The species typed by its common or scientific name.
std::optional<SpeciesMatch> species(std::string_view typed);

/// Up to `limit` suggestions for what has been typed so far, the best first; none for less than
/// two characters.
std::vector<SpeciesMatch> search(std::string_view query, int limit);

}  // namespace BirdClassifierLabels

/// The name of the best candidate as shown to people.
std::string displayName(const IdentifiedSpecies& species);

}  // namespace ornivo
