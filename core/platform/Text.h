#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Text in the Unicode sense, the same in every locale. Every text is UTF-8; bytes that are not,
/// as in the file names of old cards, come through unchanged and are equal to themselves alone.
namespace ornivo {

/// Lower case without accents: "Érable" and "ERABLE" fold alike.
std::string foldCaseAndDiacritics(std::string_view text);

/// Without white space and line ends at both ends.
std::string trimmed(std::string_view text);

/// Each run of white space made one blank.
std::string collapsingWhiteSpace(std::string_view text);

std::string lowercased(std::string_view text);

/// Each letter that begins a word in upper case, every other in lower. A word begins after
/// anything that is neither a letter with cases nor, like an apostrophe, at home inside words.
std::string capitalized(std::string_view text);

/// Every occurrence of one ASCII character replaced by another.
std::string replacing(std::string_view text, char from, char to);

/// The text's characters as a reader counts them: a letter with its accents is one, a line end
/// of two control characters is one. The views point into `text`.
std::vector<std::string_view> characters(std::string_view text);

/// Whether a character, as `characters` gives it, is a letter or a number of any script.
bool isLetter(std::string_view character);
bool isNumber(std::string_view character);

/// Whether the text begins with all of the prefix's characters, whole ones: "é" written as two
/// code points does not begin with "e". Both texts are taken as they stand, without folding.
bool beginsWith(std::string_view text, std::string_view prefix);

/// The plain text order: by the Unicode scalar values of the canonically composed texts, with no
/// locale.
bool plainTextLess(std::string_view a, std::string_view b);

/// The text with letters and accents written as one code point where there is one.
std::string canonicallyComposed(std::string_view text);

/// Equal but for case, and for whether accents are composed.
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// A form that two texts share exactly when they are `equalIgnoringCase`.
std::string caselessForm(std::string_view text);

/// The text with U+FFFD in place of what is not UTF-8, for words that a person reads.
std::string wellFormed(std::string_view text);

}  // namespace ornivo
