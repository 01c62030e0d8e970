#include "identification/SeasonTable.h"

#include <vector>

#include "identification/CompositePrior.h"

namespace ornivo {

std::shared_ptr<const SpeciesPrior> SeasonTable::bundledCombinedPrior(
    const std::optional<std::string>&) {
    return std::make_shared<CompositePrior>(std::vector<std::shared_ptr<const SpeciesPrior>>());
}

}  // namespace ornivo
