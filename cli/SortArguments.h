#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "cli/SortRequest.h"

namespace ornivo::cli {

/// The arguments of `sort` and what they mean.
class SortArguments {
public:
    /// The heading, in the help, of the options that don't change where files go.
    static constexpr const char* runGroup = "How to run";

    /// Declares the arguments. `command` fills this object in as it parses, and must not outlive
    /// it.
    explicit SortArguments(CLI::App& command);
    SortArguments(const SortArguments&) = delete;
    SortArguments& operator=(const SortArguments&) = delete;

    /// What was asked for, once the command line has been parsed. Raises `UsageError`.
    SortRequest request() const;

private:
    void declareFilingOptions(CLI::App& command);
    void declareRunOptions(CLI::App& command);
    void assumePlace(SortRequest& request) const;

    std::string source_;
    std::string destination_;
    std::optional<std::string> confidence_;
    std::optional<std::string> level_;
    std::optional<std::string> at_;
    std::optional<std::string> region_;
    bool rename_ = false;
    bool dateSubfolders_ = false;
    bool trashOriginals_ = false;
    bool dryRun_ = false;
    bool json_ = false;
    bool yes_ = false;
};

}  // namespace ornivo::cli
