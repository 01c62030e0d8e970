#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/ImageClassifier.h"

namespace ornivo {

/// The whole answer for one image.
struct IdentifiedSpecies {
    /// One species and how sure the classifier and the priors are of it.
    struct Candidate {
        /// The classifier's class label, byte for byte: the identity of a species in every table.
        std::string label;
        /// Probability after the priors, 0 to 1.
        double confidence = 0;

        bool operator==(const Candidate&) const = default;
    };

    /// The best candidate, the first of `topK`.
    Candidate top;
    /// The best candidates in descending confidence, at least one.
    std::vector<Candidate> topK;
    /// Where the bird is, if the classifier tells. No run depends on it.
    std::optional<SubjectBox> birdBox = std::nullopt;

    const std::string& topLabel() const { return top.label; }
    double confidence() const { return top.confidence; }

    bool operator==(const IdentifiedSpecies&) const = default;
};

}  // namespace ornivo
