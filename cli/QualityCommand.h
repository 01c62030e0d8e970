#pragma once

#include <CLI/CLI.hpp>

#include "cli/Command.h"

namespace ornivo::cli {

/// `quality`: measures single photographs, without filing anything.
class QualityCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit QualityCommand(CLI::App& parent);
    QualityCommand(const QualityCommand&) = delete;
    QualityCommand& operator=(const QualityCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    const CLI::Option* files_;
    bool json_ = false;
};

}  // namespace ornivo::cli
