#pragma once

#include <functional>
#include <string>

#include "identification/SpeciesPrior.h"

namespace ornivo {

/// Says of a raw label whether its species is to be expected.
using Expects = std::function<bool(const std::string& label)>;

/// Multiplies the confidence of every species that is not expected by `weight`, in place. Answers
/// the sum of all confidences afterwards, added up in list order.
double weighDown(SpeciesPrior::Candidates& candidates, double weight, const Expects& expects);

/// Divides every confidence by `sum`.
void renormalise(SpeciesPrior::Candidates& candidates, double sum);

/// The likeliest first, equals by label in plain text order.
void sortLikeliestFirst(SpeciesPrior::Candidates& candidates);

}  // namespace ornivo
