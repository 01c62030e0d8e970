#pragma once

#include "identification/SpeciesPrior.h"

namespace ornivo {

/// Knows nothing.
class NoSpeciesPrior final : public SpeciesPrior {
public:
    using SpeciesPrior::adjusted;

    bool usesLocation() const override { return false; }

    Candidates adjusted(Candidates candidates, const IdentificationContext&) const override {
        return candidates;
    }
};

}  // namespace ornivo
