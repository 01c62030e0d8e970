#include "support/ScriptedIdentifier.h"

#include <string>
#include <utility>

#include "vocabulary/BirdIdentifierError.h"

namespace ornivo::testing {

IdentifiedSpecies guesses(std::vector<IdentifiedSpecies::Candidate> candidates) {
    IdentifiedSpecies species{candidates.front(), {}};
    species.topK = std::move(candidates);
    return species;
}

void ScriptedIdentifier::answer(int width, IdentifiedSpecies species) {
    const std::lock_guard lock(mutex_);
    answers_[width] = std::move(species);
}

void ScriptedIdentifier::fail(int width, std::exception_ptr failure) {
    const std::lock_guard lock(mutex_);
    answers_[width] = std::move(failure);
}

std::vector<ScriptedIdentifier::Call> ScriptedIdentifier::calls() const {
    const std::lock_guard lock(mutex_);
    return calls_;
}

bool ScriptedIdentifier::wasCrowded() const {
    const std::lock_guard lock(mutex_);
    return wasCrowded_;
}

IdentifiedSpecies ScriptedIdentifier::identify(const Bitmap& image, std::uint32_t orientation,
                                               const std::optional<PhotoLocation>& location) {
    return identify(image, orientation, IdentificationContext(location, std::nullopt));
}

IdentifiedSpecies ScriptedIdentifier::identify(const Bitmap& image, std::uint32_t orientation,
                                               const IdentificationContext& context) {
    Answer answer = take({image.width(), orientation, context});
    if (hook_) hook_(image.width());
    {
        const std::lock_guard lock(mutex_);
        --callers_;
    }
    if (const auto* failure = std::get_if<std::exception_ptr>(&answer)) {
        std::rethrow_exception(*failure);
    }
    return std::get<IdentifiedSpecies>(std::move(answer));
}

ScriptedIdentifier::Answer ScriptedIdentifier::take(const Call& call) {
    const std::lock_guard lock(mutex_);
    ++callers_;
    wasCrowded_ = wasCrowded_ || callers_ > 1;
    calls_.push_back(call);
    const auto found = answers_.find(call.width);
    if (found != answers_.end()) return found->second;
    return std::make_exception_ptr(BirdIdentifierError::identificationFailed(
        "no answer for a width of " + std::to_string(call.width)));
}

}  // namespace ornivo::testing
