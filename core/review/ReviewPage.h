#pragma once

#include <chrono>
#include <cstddef>
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
    /// The picture that the page shows where a browser can't show the file itself: its path as
    /// seen from `_Uncertain`; empty where there is none.
    std::string standIn = {};

    bool operator==(const Row&) const = default;
};

/// Of a shot's guesses, those that a person gets to see, on the page and in `review.csv`.
inline constexpr std::size_t guessesPerRow = 3;

/// The review page: one HTML document, complete in itself, that shows the files of the rows by
/// their bare names and so has to lie beside them. `gate` is the confidence that the run asked
/// for, from 0 to 1; `generated` is the time of writing. The page speaks English; its date and its
/// digits follow a locale ("en_GB") and a time zone ("Europe/London"), the user's unless given.
std::string html(const std::vector<Row>& rows, double gate, std::chrono::sys_seconds generated,
                 const std::string& locale = {}, const std::string& timeZone = {});

/// A text as a field of `review.csv`: with a comma, a quotation mark or a line feed in it, it
/// stands in quotation marks, those in it doubled; otherwise as it is.
std::string csvField(std::string_view text);

}  // namespace ornivo::ReviewPage
