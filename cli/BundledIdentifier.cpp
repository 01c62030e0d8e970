#include "cli/BundledIdentifier.h"

#include <optional>

#include "identification/BirdIdentifierProvider.h"
#include "identification/SeasonTable.h"

namespace ornivo::cli {

std::shared_ptr<BirdIdentifying> bundledIdentifier() {
    return BirdIdentifierProvider::make(ConfidencePolicy(),
                                        SeasonTable::bundledCombinedPrior(std::nullopt));
}

}  // namespace ornivo::cli
