#include "cli/FindCommand.h"

#include <vector>

#include "cli/CommandHelp.h"
#include "cli/FolderRun.h"
#include "cli/TargetNotes.h"

namespace ornivo::cli {

namespace {

const std::vector<Example> examples{
    {"ornivo-cli find \"Bald Eagle\" --in ~/Pictures/Inbox --to ~/Pictures/Eagles",
     "copy out the shots of one bird; the rest stay put"},
    {"ornivo-cli find osprey \"Common Hoopoe\" --in Inbox --to Birds --level probable",
     "two birds, accepting less certain calls"},
    {"ornivo-cli find \"upupa epops\" --in Inbox --to Birds --dry-run",
     "only say what would be copied"},
};

}  // namespace

FindCommand::FindCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("find", "Copy out only the shots of chosen species")),
      arguments_(command_) {
    addHelp(command_, RunManner::helpGroup, examples);
}

ExitCode FindCommand::run(Console& console) {
    const RunRequest request = arguments_.request();
    tellTargets(request.targets, console);
    return runOverFolder(request, console);
}

}  // namespace ornivo::cli
