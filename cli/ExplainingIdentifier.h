#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "identification/RangeListPrior.h"
#include "identification/SeasonPrior.h"
#include "vocabulary/BirdIdentifying.h"

namespace ornivo::cli {

/// Why a species got its confidence.
struct ExplainedCandidate {
    std::string label;
    /// What the classifier gave it.
    double share = 0;
    /// What the place and the month multiplied it by.
    double rangeFactor = 1;
    double seasonFactor = 1;
    /// What came out, once all shares were renormalised.
    double confidence = 0;
};

/// Why an answer is as it is.
struct Explanation {
    /// Empty when nothing was identified.
    std::vector<ExplainedCandidate> candidates;
    /// Where the classifier saw the bird, if it tells.
    std::optional<SubjectBox> birdBox;
};

/// Answers as the bundled identifier does, and remembers why. For one caller at a time.
class ExplainingIdentifier : public BirdIdentifying {
public:
    ExplainingIdentifier();

    using BirdIdentifying::identify;

    ConfidencePolicy policy() const override { return {}; }
    bool usesLocation() const override { return range_ != nullptr; }
    bool usesDate() const override { return season_ != nullptr; }
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const std::optional<PhotoLocation>& location) override;
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const IdentificationContext& context) override;

    /// The reasons for the surest answer since the last call of this.
    Explanation takeExplanation();

private:
    void explain(const IdentifiedSpecies& classified, const IdentifiedSpecies& answer,
                 const IdentificationContext& context);

    /// Gives every class its share, without priors.
    std::shared_ptr<BirdIdentifying> classifier_;
    /// Null where there is no such table.
    std::shared_ptr<const RangeListPrior> range_;
    std::shared_ptr<const SeasonPrior> season_;
    Explanation explanation_;
};

}  // namespace ornivo::cli
