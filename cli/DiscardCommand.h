#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "cli/Command.h"

namespace ornivo::cli {

/// `discard`: forgets a run that stopped when its destination was full.
class DiscardCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit DiscardCommand(CLI::App& parent);
    DiscardCommand(const DiscardCommand&) = delete;
    DiscardCommand& operator=(const DiscardCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    std::string destination_;
};

}  // namespace ornivo::cli
