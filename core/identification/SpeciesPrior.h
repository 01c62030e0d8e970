#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "vocabulary/IdentificationContext.h"
#include "vocabulary/IdentifiedSpecies.h"

namespace ornivo {

/// What is known beside the pixels. A prior lowers the candidates that do not fit where and when a
/// photograph was taken, and renormalises; it adds none, drops none, and raises one only by
/// renormalising. A prior that knows nothing leaves the list exactly as it came.
///
/// Priors never change once made: any number of threads may share one.
class SpeciesPrior {
public:
    using Candidates = std::vector<IdentifiedSpecies::Candidate>;

    virtual ~SpeciesPrior() = default;

    /// Whether a known place can change the answer.
    virtual bool usesLocation() const = 0;
    /// Whether a known month can change the answer.
    virtual bool usesDate() const { return false; }

    /// The re-weighted list; after a change, the likeliest first and equals by label.
    virtual Candidates adjusted(Candidates candidates,
                                const IdentificationContext& context) const = 0;

    /// The same for a photograph whose month is not known.
    Candidates adjusted(Candidates candidates, const std::optional<PhotoLocation>& location) const {
        return adjusted(std::move(candidates), IdentificationContext(location, std::nullopt));
    }
};

}  // namespace ornivo
