#pragma once

#include <memory>
#include <optional>
#include <string>

#include "identification/SpeciesPrior.h"

namespace ornivo {

/// The months in which species are present.
struct SeasonTable {
    /// What the tables that ship with the program know of places and months, as one prior; with a
    /// region's identifier, of that region alone. A table that is missing adds nothing to it: today
    /// none ships, and the prior leaves every list as it is.
    static std::shared_ptr<const SpeciesPrior> bundledCombinedPrior(
        const std::optional<std::string>& restrictedTo);
};

}  // namespace ornivo
