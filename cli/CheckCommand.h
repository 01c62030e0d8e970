#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "cli/Command.h"

namespace ornivo::cli {

/// `check`: says what a run would find before it is started: how many files, whether they tell
/// where they were taken, and whether their copies have room.
class CheckCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit CheckCommand(CLI::App& parent);
    CheckCommand(const CheckCommand&) = delete;
    CheckCommand& operator=(const CheckCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    CLI::App& command_;
    std::string source_;
    std::optional<std::string> destination_;
    bool json_ = false;
};

}  // namespace ornivo::cli
