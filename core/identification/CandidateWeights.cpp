#include "identification/CandidateWeights.h"

#include <algorithm>

#include "platform/Text.h"

namespace ornivo {

using Candidate = IdentifiedSpecies::Candidate;

double weighDown(SpeciesPrior::Candidates& candidates, double weight, const Expects& expects) {
    double sum = 0;
    for (Candidate& candidate : candidates) {
        if (!expects(candidate.label)) candidate.confidence *= weight;
        sum += candidate.confidence;
    }
    return sum;
}

void renormalise(SpeciesPrior::Candidates& candidates, double sum) {
    for (Candidate& candidate : candidates) candidate.confidence /= sum;
}

void sortLikeliestFirst(SpeciesPrior::Candidates& candidates) {
    std::ranges::stable_sort(candidates, [](const Candidate& a, const Candidate& b) {
        if (a.confidence != b.confidence) return a.confidence > b.confidence;
        return plainTextLess(a.label, b.label);
    });
}

}  // namespace ornivo
