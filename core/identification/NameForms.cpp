#include "identification/NameForms.h"

#include <algorithm>

#include "platform/Text.h"

namespace ornivo::BirdClassifierLabels {

std::string normalize(std::string_view text) {
    return collapsingWhiteSpace(trimmed(foldCaseAndDiacritics(text)));
}

std::string normalizeLoose(std::string_view text) {
    return normalize(replacing(replacing(text, '-', ' '), '_', ' '));
}

std::string titleCased(std::string_view text) {
    const std::string lower = lowercased(text);
    std::string result;
    std::size_t start = 0;
    while (start < lower.size()) {
        const std::size_t end = std::min(lower.find_first_of(" -", start), lower.size());
        result += capitalized(std::string_view(lower).substr(start, end - start));
        if (end < lower.size()) result += lower[end];
        start = end + 1;
    }
    return result;
}

}  // namespace ornivo::BirdClassifierLabels
