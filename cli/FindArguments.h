#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "cli/FilingArguments.h"
#include "cli/RunManner.h"
#include "cli/RunRequest.h"

namespace ornivo::cli {

/// The arguments of `find` and what they mean.
class FindArguments {
public:
    /// Declares the arguments. `command` fills this object in as it parses, and must not outlive
    /// it.
    explicit FindArguments(CLI::App& command);
    FindArguments(const FindArguments&) = delete;
    FindArguments& operator=(const FindArguments&) = delete;

    /// What was asked for, once the command line has been parsed. Raises `UsageError`.
    RunRequest request() const;

private:
    const CLI::Option* species_;
    std::string source_;
    std::string destination_;
    FilingArguments filing_;
    RunManner manner_;
};

}  // namespace ornivo::cli
