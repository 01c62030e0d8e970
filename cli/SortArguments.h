#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "cli/FilingArguments.h"
#include "cli/RunManner.h"
#include "cli/RunRequest.h"

namespace ornivo::cli {

/// The arguments of `sort` and what they mean.
class SortArguments {
public:
    /// Declares the arguments. `command` fills this object in as it parses, and must not outlive
    /// it.
    explicit SortArguments(CLI::App& command);
    SortArguments(const SortArguments&) = delete;
    SortArguments& operator=(const SortArguments&) = delete;

    /// What was asked for, once the command line has been parsed. Raises `UsageError`.
    RunRequest request() const;

private:
    std::string source_;
    std::string destination_;
    FilingArguments filing_;
    RunManner manner_;
};

}  // namespace ornivo::cli
