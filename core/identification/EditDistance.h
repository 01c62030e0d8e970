#pragma once

#include <cstddef>
#include <string_view>

namespace ornivo {

/// The Levenshtein distance of two texts over characters as a reader counts them, where inserting,
/// deleting and replacing one cost 1 each; `bound` + 1 for any distance above the bound.
/// (V. I. Levenshtein, "Binary codes capable of correcting deletions, insertions, and reversals",
/// 1966; computed with two rows after R. A. Wagner and M. J. Fischer, 1974.)
std::size_t boundedEditDistance(std::string_view a, std::string_view b, std::size_t bound);

}  // namespace ornivo
