#pragma once

#include "vocabulary/BirdIdentifying.h"

namespace ornivo {

/// Gives canned answers, so that everything above identification runs without a classifier.
class MockBirdIdentifier final : public BirdIdentifying {
public:
    enum class Mode { highConfidence, lowConfidence, ambiguous };

    MockBirdIdentifier(ConfidencePolicy policy, Mode mode) : policy_(policy), mode_(mode) {}

    /// Has no influence on the answers, which always hold three candidates.
    ConfidencePolicy policy() const override { return policy_; }
    Mode mode() const { return mode_; }

    using BirdIdentifying::identify;
    /// The mode's answer. Raises `BirdIdentifierError::imageTooSmall` for an image below 224 pixels
    /// on a side.
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const std::optional<PhotoLocation>& location) override;

private:
    ConfidencePolicy policy_;
    Mode mode_;
};

}  // namespace ornivo
