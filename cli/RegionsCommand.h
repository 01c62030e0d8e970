#pragma once

#include <CLI/CLI.hpp>

#include "cli/Command.h"

namespace ornivo::cli {

/// `regions`: lists the regions whose birds are known.
class RegionsCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit RegionsCommand(CLI::App& parent);
    RegionsCommand(const RegionsCommand&) = delete;
    RegionsCommand& operator=(const RegionsCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    bool json_ = false;
};

}  // namespace ornivo::cli
