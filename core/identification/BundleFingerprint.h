#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace ornivo::BundleFingerprint {

/// The data that ship with the program, reduced to what tells one set from another.
struct Summary {
    /// Entries of the common-name table, and the first and last label in it; empty without any.
    int labelCount = 0;
    std::string firstLabel;
    std::string lastLabel;
    /// Regions of the range table, and labels of the one named "indian-subcontinent"; 0 if the
    /// table cannot be loaded.
    int rangeRegionCount = 0;
    int subcontinentLabelCount = 0;
    /// Months of the season table; 0 if it cannot be loaded.
    int seasonMonthCount = 0;
    /// Elements of the lists of places and photographers, sound or not.
    int placeCount = 0;
    int photographerCount = 0;
    bool modelPresent = false;

    /// A short identity of all fields: 16 hexadecimal digits.
    std::string digest() const;

    /// A JSON object with the fields under their names.
    std::string toJson() const;
    /// Raises `DecodingError`.
    static Summary fromJson(std::string_view json);

    bool operator==(const Summary&) const = default;
};

/// Whether a data set is the one expected, and where it differs, line by line.
struct Verdict {
    std::vector<std::string> differences;

    bool isMatch() const { return differences.empty(); }
    bool operator==(const Verdict&) const = default;
};

/// The data as they stand, read anew on each call. What is missing or broken counts 0.
Summary summary();

/// Compares two summaries, or the data as they stand with an expected summary.
Verdict compare(const Summary& expected, const Summary& actual);
Verdict verify(const Summary& expected);

/// The SHA-256 of each resource by its name, or why there is none.
std::map<std::string, std::string> deep();

}  // namespace ornivo::BundleFingerprint
