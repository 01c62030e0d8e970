#pragma once

#include <CLI/CLI.hpp>

namespace ornivo::cli {

/// How a run is gone about. None of this changes where files go.
struct RunManner {
    /// The heading of these options in the help.
    static constexpr const char* helpGroup = "How to run";

    /// Only say what would be done.
    bool dryRun = false;
    /// One JSON object a line instead of words.
    bool json = false;
    /// Ask no question.
    bool yes = false;

    bool operator==(const RunManner&) const = default;
};

/// Declares the options that fill in `manner`, which must outlive the command.
void addRunManner(CLI::App& command, RunManner& manner);

}  // namespace ornivo::cli
