#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "cli/Command.h"

namespace ornivo::cli {

/// `species`: looks a bird up among those that can be recognised.
class SpeciesCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit SpeciesCommand(CLI::App& parent);
    SpeciesCommand(const SpeciesCommand&) = delete;
    SpeciesCommand& operator=(const SpeciesCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    const CLI::Option* words_;
    std::string limit_;
    bool json_ = false;
};

}  // namespace ornivo::cli
