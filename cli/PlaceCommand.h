#pragma once

#include <CLI/CLI.hpp>

#include "cli/Command.h"

namespace ornivo::cli {

/// `place`: says which place a text means, and in which region it lies.
class PlaceCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit PlaceCommand(CLI::App& parent);
    PlaceCommand(const PlaceCommand&) = delete;
    PlaceCommand& operator=(const PlaceCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    const CLI::Option* words_;
    bool json_ = false;
};

}  // namespace ornivo::cli
