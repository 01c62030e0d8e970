#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <mutex>
#include <variant>
#include <vector>

#include "vocabulary/BirdIdentifying.h"

namespace ornivo::testing {

/// The answer with these candidates, the first the best.
IdentifiedSpecies guesses(std::vector<IdentifiedSpecies::Candidate> candidates);

/// Answers as it was told to, by the width of the picture in pixels: whoever asks first, each
/// picture gets its own answer. A width it knows nothing of is a failure with words that say so.
class ScriptedIdentifier : public BirdIdentifying {
public:
    /// One call, as it came.
    struct Call {
        int width;
        std::uint32_t orientation;
        IdentificationContext context;
    };

    explicit ScriptedIdentifier(bool usesLocation = false, bool usesDate = false)
        : usesLocation_(usesLocation), usesDate_(usesDate) {}

    void answer(int width, IdentifiedSpecies species);
    /// Raises the failure instead.
    void fail(int width, std::exception_ptr failure);
    /// Has `hook` called, with the width, during each call. Not while calls are being made.
    void onCall(std::function<void(int)> hook) { hook_ = std::move(hook); }

    std::vector<Call> calls() const;
    /// Whether there ever was more than one caller at a time.
    bool wasCrowded() const;

    ConfidencePolicy policy() const override { return {}; }
    bool usesLocation() const override { return usesLocation_; }
    bool usesDate() const override { return usesDate_; }

    using BirdIdentifying::identify;
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const std::optional<PhotoLocation>& location) override;
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const IdentificationContext& context) override;

private:
    using Answer = std::variant<IdentifiedSpecies, std::exception_ptr>;

    Answer take(const Call& call);

    const bool usesLocation_;
    const bool usesDate_;
    std::function<void(int)> hook_;
    mutable std::mutex mutex_;
    std::map<int, Answer> answers_;
    std::vector<Call> calls_;
    int callers_ = 0;
    bool wasCrowded_ = false;
};

}  // namespace ornivo::testing
