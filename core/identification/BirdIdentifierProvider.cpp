#include "identification/BirdIdentifierProvider.h"

#include <exception>
#include <utility>

#include "identification/BirdIdentifier.h"
#include "identification/UnavailableBirdIdentifier.h"

namespace ornivo::BirdIdentifierProvider {

std::shared_ptr<BirdIdentifying> make(ConfidencePolicy policy,
                                      std::shared_ptr<const SpeciesPrior> prior,
                                      const std::optional<std::filesystem::path>& modelURL) {
    try {
        return std::make_shared<BirdIdentifier>(policy, std::move(prior), modelURL);
    } catch (const BirdIdentifierError& error) {
        return std::make_shared<UnavailableBirdIdentifier>(policy, error);
    } catch (const std::exception& failure) {
        return std::make_shared<UnavailableBirdIdentifier>(
            policy, BirdIdentifierError::identificationFailed(failure.what()));
    }
}

bool isModelBundled() {
    return BirdIdentifier::bundledModelURL().has_value();
}

}  // namespace ornivo::BirdIdentifierProvider
