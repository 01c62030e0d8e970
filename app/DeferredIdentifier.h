#pragma once

#include <functional>
#include <future>
#include <memory>
#include <optional>

#include "vocabulary/BirdIdentifying.h"

namespace ornivo::app {

/// An identifier that is being made on a thread of its own, so that the window need not wait for
/// the classifier to load. Whoever asks it before it is ready waits.
class DeferredIdentifier final : public BirdIdentifying {
public:
    /// Answers an identifier with this policy. Called once; must not raise.
    using Make = std::function<std::shared_ptr<BirdIdentifying>()>;

    DeferredIdentifier(ConfidencePolicy policy, Make make);

    ConfidencePolicy policy() const override { return policy_; }
    bool usesLocation() const override { return made_.get()->usesLocation(); }
    bool usesDate() const override { return made_.get()->usesDate(); }

    using BirdIdentifying::identify;
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const std::optional<PhotoLocation>& location) override {
        return made_.get()->identify(image, orientation, location);
    }
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const IdentificationContext& context) override {
        return made_.get()->identify(image, orientation, context);
    }

private:
    ConfidencePolicy policy_;
    std::shared_future<std::shared_ptr<BirdIdentifying>> made_;
};

}  // namespace ornivo::app
