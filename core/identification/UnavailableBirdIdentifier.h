#pragma once

#include "vocabulary/BirdIdentifierError.h"
#include "vocabulary/BirdIdentifying.h"

namespace ornivo {

/// Stands in for an identifier that could not be made: every call fails with the reason, and no
/// image is looked at.
class UnavailableBirdIdentifier final : public BirdIdentifying {
public:
    UnavailableBirdIdentifier(ConfidencePolicy policy, const BirdIdentifierError& error)
        : policy_(policy),
          error_(error) {}  // NOLINT(bugprone-throw-keyword-missing): kept to be thrown later

    ConfidencePolicy policy() const override { return policy_; }
    const BirdIdentifierError& error() const { return error_; }

    using BirdIdentifying::identify;
    IdentifiedSpecies identify(const Bitmap&, std::uint32_t,
                               const std::optional<PhotoLocation>&) override {
        throw error_;
    }
    IdentifiedSpecies identify(const Bitmap&, std::uint32_t,
                               const IdentificationContext&) override {
        throw error_;
    }

private:
    ConfidencePolicy policy_;
    BirdIdentifierError error_;
};

}  // namespace ornivo
