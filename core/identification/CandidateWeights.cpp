#include "identification/CandidateWeights.h"

#include <algorithm>
#include <utility>
#include <vector>

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
    // Whole candidates are costly to move about, so they are moved once, when the order is known.
    std::vector<Candidate*> order;
    order.reserve(candidates.size());
    for (Candidate& candidate : candidates) order.push_back(&candidate);
    std::ranges::stable_sort(order, [](const Candidate* a, const Candidate* b) {
        if (a->confidence != b->confidence) return a->confidence > b->confidence;
        return plainTextLess(a->label, b->label);
    });
    SpeciesPrior::Candidates sorted;
    sorted.reserve(candidates.size());
    for (Candidate* const candidate : order) sorted.push_back(std::move(*candidate));
    candidates = std::move(sorted);
}

}  // namespace ornivo
