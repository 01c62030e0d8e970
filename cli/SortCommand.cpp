#include "cli/SortCommand.h"

#include <vector>

#include "cli/CommandHelp.h"
#include "cli/FolderRun.h"

namespace ornivo::cli {

namespace {

const std::vector<Example> examples{
    {"ornivo-cli sort ~/Pictures/Inbox ~/Pictures/Birds",
     "copy every shot into a folder of its species"},
    {"ornivo-cli sort Inbox Birds --dry-run", "only say what would go where"},
    {"ornivo-cli sort Inbox Birds --level confirmed --date-subfolders",
     "file only sure calls, by species and day"},
    {"ornivo-cli sort Inbox Birds --at 51.5,-0.12",
     "favour birds of London where a shot tells no place"},
    {"ornivo-cli sort Inbox Birds --bursts confirmedOnly",
     "let the frames of a burst confirm one another"},
};

}  // namespace

SortCommand::SortCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("sort", "Sort a folder of photographs by species")),
      arguments_(command_) {
    addHelp(command_, RunManner::helpGroup, examples);
}

ExitCode SortCommand::run(Console& console) {
    return runOverFolder(arguments_.request(), console);
}

}  // namespace ornivo::cli
