#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "cli/Command.h"

namespace ornivo::cli {

/// `identify`: tells the birds in single files, without filing anything.
class IdentifyCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit IdentifyCommand(CLI::App& parent);
    IdentifyCommand(const IdentifyCommand&) = delete;
    IdentifyCommand& operator=(const IdentifyCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    ExitCode answer(Console& console) const;
    ExitCode explain(Console& console) const;

    CLI::App& command_;
    const CLI::Option* files_;
    std::optional<std::string> at_;
    bool json_ = false;
    bool explain_ = false;
};

}  // namespace ornivo::cli
