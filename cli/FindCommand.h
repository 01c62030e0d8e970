#pragma once

#include "cli/Command.h"
#include "cli/FindArguments.h"

namespace ornivo::cli {

/// `find`: copies out the photographs and clips of a folder that show chosen species.
class FindCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit FindCommand(CLI::App& parent);

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    FindArguments arguments_;
};

}  // namespace ornivo::cli
