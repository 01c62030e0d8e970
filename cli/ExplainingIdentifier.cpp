#include "cli/ExplainingIdentifier.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "identification/BirdIdentifierProvider.h"
#include "identification/NoSpeciesPrior.h"
#include "identification/RangeTable.h"
#include "identification/SeasonTable.h"

namespace ornivo::cli {

namespace {

constexpr double anyConfidence = 0;
constexpr int allClasses = std::numeric_limits<int>::max();

using Candidate = IdentifiedSpecies::Candidate;

}  // namespace

ExplainingIdentifier::ExplainingIdentifier()
    : classifier_(BirdIdentifierProvider::make({anyConfidence, allClasses},
                                               std::make_shared<NoSpeciesPrior>())) {
    if (const auto ranges = RangeTable::bundled()) {
        range_ = ranges->prior(SeasonTable::offRangeWeight);
    }
    if (const auto seasons = SeasonTable::bundled()) {
        season_ = seasons->prior(SeasonTable::offSeasonWeight);
    }
}

IdentifiedSpecies ExplainingIdentifier::identify(const Bitmap& image, std::uint32_t orientation,
                                                 const std::optional<PhotoLocation>& location) {
    return identify(image, orientation, IdentificationContext(location, std::nullopt));
}

IdentifiedSpecies ExplainingIdentifier::identify(const Bitmap& image, std::uint32_t orientation,
                                                 const IdentificationContext& context) {
    const IdentifiedSpecies classified = classifier_->identify(image, orientation, context);
    auto candidates = classified.topK;
    if (range_) candidates = range_->adjusted(std::move(candidates), context);
    if (season_) candidates = season_->adjusted(std::move(candidates), context);
    candidates.resize(std::min(candidates.size(), static_cast<std::size_t>(policy().topK)));
    const IdentifiedSpecies answer{candidates.front(), candidates, classified.birdBox};
    explain(classified, answer, context);
    return answer;
}

Explanation ExplainingIdentifier::takeExplanation() {
    return std::exchange(explanation_, {});
}

void ExplainingIdentifier::explain(const IdentifiedSpecies& classified,
                                   const IdentifiedSpecies& answer,
                                   const IdentificationContext& context) {
    const bool isSurer = explanation_.candidates.empty() ||
                         answer.confidence() > explanation_.candidates.front().confidence;
    if (!isSurer) return;
    explanation_ = {{}, answer.birdBox};
    for (const Candidate& candidate : answer.topK) {
        const auto share =
            std::ranges::find(classified.topK, candidate.label, &Candidate::label)->confidence;
        explanation_.candidates.push_back(
            {candidate.label, share, range_ ? range_->factor(candidate.label, context) : 1,
             season_ ? season_->factor(candidate.label, context) : 1, candidate.confidence});
    }
}

}  // namespace ornivo::cli
