#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace ornivo::app {

/// What the program was started with.
struct StartArguments {
    /// The source, and perhaps the destination. Absolute.
    std::vector<std::filesystem::path> folders;
    /// For measuring how long a start takes.
    bool exitWhenShown = false;

    bool operator==(const StartArguments&) const = default;
};

/// What is to be printed instead of opening the window, and the exit status with it.
struct StartRefusal {
    std::string text;
    int status = 0;
};

/// Reads the command line. Fills `refusal` where help or the version was asked for, or something
/// was wrong; then there is no window to open.
std::optional<StartArguments> readArguments(int argc, const char* const* argv,
                                            StartRefusal& refusal);

}  // namespace ornivo::app
