#include "cli/DiscardCommand.h"

#include "cli/CommandHelp.h"
#include "cli/ExistingFolder.h"
#include "cli/MissingRecord.h"
#include "cli/TerminalText.h"
#include "engine/PausedRun.h"

namespace ornivo::cli {

namespace {

const std::vector<Example> examples{
    {"ornivo-cli discard ~/Pictures/Birds", "forget the run that stopped there"},
};

}  // namespace

DiscardCommand::DiscardCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("discard", "Forget a run that met a full disk")) {
    command_
        .add_option("DESTINATION", destination_,
                    "Folder that the run filled; only the record of\n"
                    "the run goes, all that was filed stays")
        ->required();
    addHelp(command_, "Options", examples);
}

ExitCode DiscardCommand::run(Console& console) {
    const auto destination = existingFolder(destination_);
    const auto files = Files::system();
    const auto file = PausedRun::manifestURL(destination);
    if (!files->exists(file)) return tellMissingRecord(destination, console);

    const auto record = PausedRun::read(destination, *files);
    if (!PausedRun::clear(destination, *files)) {
        console.note(printable("\"" + file.string() + "\" couldn't be removed."), Tone::error);
        return ExitCode::someFailed;
    }
    console.line(record ? printable("Discarded: " + record->summary() + ".")
                        : "Discarded a record that couldn't be read.");
    console.line("The files already filed stay where they are.");
    return ExitCode::done;
}

}  // namespace ornivo::cli
