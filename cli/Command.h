#pragma once

#include "cli/Console.h"
#include "cli/ExitCode.h"

namespace ornivo::cli {

/// One sub-command: declares its arguments when it is made and does its work when it was chosen.
class Command {
public:
    virtual ~Command() = default;

    /// Whether the command line named this command.
    virtual bool chosen() const = 0;

    /// Does the work. Raises `UsageError` for arguments that make no sense.
    virtual ExitCode run(Console& console) = 0;
};

}  // namespace ornivo::cli
