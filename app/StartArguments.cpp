#include "app/StartArguments.h"

#include <CLI/CLI.hpp>
#include <sstream>
#include <system_error>

#include "platform/Paths.h"

namespace ornivo::app {
namespace {

namespace fs = std::filesystem;

constexpr int mostFolders = 2;

/// Free of links and of "..", which may lead elsewhere once links are in play.
fs::path absolute(const std::string& folder) {
    std::error_code unreachable;
    const fs::path found = fs::canonical(folder, unreachable);
    return unreachable ? standardized(folder) : found;
}

}  // namespace

std::optional<StartArguments> readArguments(int argc, const char* const* argv,
                                            StartRefusal& refusal) {
    CLI::App command("Sorts bird photographs into species folders, on this machine", "ornivo");
    StartArguments arguments;
    std::vector<std::string> folders;
    command.add_option("FOLDER", folders, "The folder to sort, and the one to sort it into")
        ->expected(0, mostFolders)
        ->check(CLI::ExistingDirectory);
    command.add_flag("--exit-when-shown", arguments.exitWhenShown)->group("");
    command.set_version_flag("--version", "ornivo " ORNIVO_VERSION, "Show the version");
    try {
        command.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        std::ostringstream out;
        std::ostringstream complaint;
        const bool isAnswer = command.exit(error, out, complaint) == 0;
        refusal = {isAnswer ? out.str() : complaint.str(), isAnswer ? 0 : 2};
        return std::nullopt;
    }
    for (const std::string& folder : folders) arguments.folders.push_back(absolute(folder));
    return arguments;
}

}  // namespace ornivo::app
