#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "cli/RunRequest.h"

namespace ornivo::cli {

/// The options that say how a run files, and what they mean.
class FilingArguments {
public:
    FilingArguments() = default;
    FilingArguments(const FilingArguments&) = delete;
    FilingArguments& operator=(const FilingArguments&) = delete;

    /// Declares those that count in this mode. `command` fills this object in as it parses, and
    /// must not outlive it.
    void declare(CLI::App& command, AppMode mode);

    /// Sets what was asked for, once the command line has been parsed. Raises `UsageError`.
    void applyTo(RunRequest& request) const;

private:
    void declareCalls(CLI::App& command);
    void declareNames(CLI::App& command, AppMode mode);
    void assumePlace(RunRequest& request) const;

    std::optional<std::string> confidence_;
    std::optional<std::string> level_;
    std::optional<std::string> at_;
    std::optional<std::string> region_;
    std::optional<std::string> bursts_;
    bool rename_ = false;
    bool dateSubfolders_ = false;
    bool trashOriginals_ = false;
};

}  // namespace ornivo::cli
