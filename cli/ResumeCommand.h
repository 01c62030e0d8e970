#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/Command.h"
#include "cli/RunManner.h"

namespace ornivo::cli {

/// `resume`: goes on with a run that stopped when its destination was full.
class ResumeCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit ResumeCommand(CLI::App& parent);
    ResumeCommand(const ResumeCommand&) = delete;
    ResumeCommand& operator=(const ResumeCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    std::string destination_;
    std::vector<std::string> species_;
    RunManner manner_;
};

}  // namespace ornivo::cli
