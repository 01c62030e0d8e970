#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "cli/Command.h"

namespace ornivo::cli {

/// `data`: tells whether the data that ship with the program are the ones meant to.
class DataCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit DataCommand(CLI::App& parent);
    DataCommand(const DataCommand&) = delete;
    DataCommand& operator=(const DataCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    std::optional<std::string> expected_;
    bool deep_ = false;
    bool summary_ = false;
};

}  // namespace ornivo::cli
