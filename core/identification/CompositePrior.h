#pragma once

#include <memory>
#include <vector>

#include "identification/SpeciesPrior.h"

namespace ornivo {

/// Several priors, each applied to what the one before it answered.
class CompositePrior final : public SpeciesPrior {
public:
    using SpeciesPrior::adjusted;

    explicit CompositePrior(std::vector<std::shared_ptr<const SpeciesPrior>> priors);

    bool usesLocation() const override;
    bool usesDate() const override;
    Candidates adjusted(Candidates candidates, const IdentificationContext& context) const override;

private:
    std::vector<std::shared_ptr<const SpeciesPrior>> priors_;
};

}  // namespace ornivo
