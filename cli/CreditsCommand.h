#pragma once

#include <CLI/CLI.hpp>

#include "cli/Command.h"

namespace ornivo::cli {

/// `credits`: tells whose work the program rests on, or what is still owed to them.
class CreditsCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit CreditsCommand(CLI::App& parent);
    CreditsCommand(const CreditsCommand&) = delete;
    CreditsCommand& operator=(const CreditsCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    bool owed_ = false;
};

}  // namespace ornivo::cli
