#pragma once

#include "cli/Command.h"
#include "cli/SortArguments.h"

namespace ornivo::cli {

/// `sort`: files every photograph and clip of a folder under its species.
class SortCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit SortCommand(CLI::App& parent);

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    SortArguments arguments_;
};

}  // namespace ornivo::cli
