#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vocabulary/IdentifiedSpecies.h"

/// What is written beside the shots of `_Uncertain` for the person who will decide them.
namespace ornivo::ReviewPage {

/// One undecided shot.
struct Row {
    /// The file's name as it lies in `_Uncertain`.
    std::string fileName;
    std::vector<IdentifiedSpecies::Candidate> candidates;

    bool operator==(const Row&) const = default;
};

/// A text as a field of `review.csv`: with a comma, a quotation mark or a line feed in it, it
/// stands in quotation marks, those in it doubled; otherwise as it is.
std::string csvField(std::string_view text);

}  // namespace ornivo::ReviewPage
