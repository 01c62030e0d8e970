#include <unistd.h>

#include <csignal>

#include "cli/CommandLine.h"

int main(int argc, char** argv) {
    // A reader that goes away, as `head` does, must not end a run midway.
    std::signal(SIGPIPE, SIG_IGN);
    ornivo::cli::Console console(STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO);
    return static_cast<int>(ornivo::cli::runCommandLine(argc, argv, console));
}
