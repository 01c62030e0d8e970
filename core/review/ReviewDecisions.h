#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

/// Closes the review loop: reads the decisions that the review page copied out, and files the
/// decided photographs from `_Uncertain` into their species folders.
namespace ornivo::ReviewDecisions {

struct Decision {
    /// The file's name as pasted; a path before it is of no consequence.
    std::string fileName;
    /// A common name from the page, or whatever the person typed.
    std::string species;

    bool operator==(const Decision&) const = default;
};

struct Outcome {
    /// Decisions whose main file was filed. What travelled with it is not counted.
    int moved = 0;
    /// Names that no longer stand in `_Uncertain`.
    std::vector<std::string> notFound;
    /// Names that could not be filed.
    std::vector<std::string> failed;
    /// The species folders that received a file.
    std::set<std::string> folders;

    bool operator==(const Outcome&) const = default;
};

/// Reads lines of file name and species, quoted as the page writes them or plain. What can't be
/// read as a decision is left out, and so is the header.
std::vector<Decision> parse(std::string_view text);

/// Moves each decided photograph, with the other files of its shot and their companions, from
/// `_Uncertain` in the destination to the folder of its species there. Nothing is overwritten, and
/// nothing outside `_Uncertain` is touched; one decision's failure doesn't stop the next.
Outcome apply(const std::vector<Decision>& decisions, const std::filesystem::path& destination,
              Files& files);

/// What the person gets to read after `apply`.
std::string statusText(const Outcome& outcome);

/// What the person gets to read when the text held no decision.
inline constexpr const char* nothingToFile =
    "Nothing to file — the clipboard holds no decisions. Press Copy decisions in review.html "
    "first.";

}  // namespace ornivo::ReviewDecisions
