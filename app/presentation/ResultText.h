#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/presentation/TonedText.h"
#include "vocabulary/FindResult.h"
#include "vocabulary/SortResult.h"

namespace ornivo::app {

/// What the card of a finished run says, from the top down.
struct ResultText {
    std::vector<TonedText> outcome;
    std::vector<TonedText> warnings;
    std::vector<TonedText> ending;

    bool operator==(const ResultText&) const = default;
};

ResultText resultText(const SortResult& result, const std::optional<std::filesystem::path>& sink);
ResultText resultText(const FindResult& result, const std::optional<std::filesystem::path>& sink);

/// The first three warnings, and how many there are beyond.
std::vector<TonedText> warningRows(const std::vector<std::string>& warnings);

}  // namespace ornivo::app
