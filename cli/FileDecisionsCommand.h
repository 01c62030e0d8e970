#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "cli/Command.h"

namespace ornivo::cli {

/// `file-decisions`: files uncertain shots as they were decided on in the review page.
class FileDecisionsCommand : public Command {
public:
    /// `parent` must outlive the command.
    explicit FileDecisionsCommand(CLI::App& parent);
    FileDecisionsCommand(const FileDecisionsCommand&) = delete;
    FileDecisionsCommand& operator=(const FileDecisionsCommand&) = delete;

    bool chosen() const override { return command_.parsed(); }
    ExitCode run(Console& console) override;

private:
    std::string pastedText(Console& console) const;

    CLI::App& command_;
    std::string destination_;
    std::string file_;
    bool json_ = false;
};

}  // namespace ornivo::cli
