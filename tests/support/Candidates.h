#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "identification/SpeciesPrior.h"

namespace ornivo::testing {

using Candidates = SpeciesPrior::Candidates;

inline PhotoLocation place(double latitude, double longitude) {
    return PhotoLocation::make(latitude, longitude).value();
}

inline IdentificationContext at(double latitude, double longitude) {
    return {place(latitude, longitude), std::nullopt};
}

inline IdentificationContext in(int month) {
    return {std::nullopt, month};
}

/// The three candidates of the worked example.
inline Candidates three() {
    return {{"A", 0.5}, {"B", 0.3}, {"C", 0.2}};
}

/// Expects the labels in this order, with confidences equal to ten places.
inline void expectCandidates(const Candidates& actual, const Candidates& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_EQ(actual[i].label, expected[i].label) << i;
        EXPECT_NEAR(actual[i].confidence, expected[i].confidence, 0.5e-10) << i;
    }
}

}  // namespace ornivo::testing
