#pragma once

#include <string>
#include <string_view>

namespace ornivo::BirdClassifierLabels {

/// Lower case without accents, trimmed, each run of white space one blank.
std::string normalize(std::string_view text);

/// The form in which everything that a person typed is compared: hyphens and underscores are
/// blanks, and then `normalize`.
std::string normalizeLoose(std::string_view text);

/// Every word, and every part of one after a hyphen, with a capital and otherwise in lower case.
/// Blanks stay as they are, doubled ones too.
std::string titleCased(std::string_view text);

}  // namespace ornivo::BirdClassifierLabels
