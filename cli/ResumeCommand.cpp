#include "cli/ResumeCommand.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

#include "cli/CommandHelp.h"
#include "cli/Consent.h"
#include "cli/ExistingFolder.h"
#include "cli/MissingRecord.h"
#include "cli/PausedRunText.h"
#include "cli/ResumedRun.h"
#include "cli/RunConductor.h"
#include "cli/TargetNotes.h"
#include "cli/TargetSpecies.h"
#include "cli/TerminalText.h"
#include "engine/PausedRun.h"

namespace ornivo::cli {

namespace {

namespace fs = std::filesystem;

const std::vector<Example> examples{
    {"ornivo-cli resume ~/Pictures/Birds", "go on where the disk was full"},
    {"ornivo-cli resume Eagles --species \"Bald Eagle\"", "go on with a search"},
};

/// The sum of two counts of a record, in which anything may stand.
int cappedSum(int a, int b) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(
        std::clamp<std::int64_t>(std::int64_t{a} + b, Limits::min(), Limits::max()));
}

/// A run that met a full disk once more has noted what its own part did: the parts before count
/// too. Like the record itself this is a convenience, so it goes no further if it fails.
void addEarlierPart(const PausedRun& before, const fs::path& destination) {
    const auto files = Files::system();
    auto record = PausedRun::read(destination, *files);
    if (!record || *record == before) return;
    record->sortedSoFar = cappedSum(record->sortedSoFar, before.sortedSoFar);
    record->uncertainSoFar = cappedSum(record->uncertainSoFar, before.uncertainSoFar);
    record->write(destination, *files);
}

/// A stopped run leaves the record as it was, from which the next one would begin anew.
void tellWhereTheRecordStands(const ResumedRun& resumed, Console& console) {
    const fs::path next = resumed.scope.files.at(resumed.scope.startIndex()).filename();
    const bool areOriginalsThere = resumed.options.mode == CopyMode::keep;
    console.note(
        printable("The paused run still stands at " + next.string() +
                  ": resumed again, it would begin there" +
                  (areOriginalsThere ? ", and file once more what has been filed since." : ".")),
        Tone::warning);
}

}  // namespace

ResumeCommand::ResumeCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("resume", "Go on with a run that met a full disk")) {
    command_
        .add_option("DESTINATION", destination_,
                    "Folder that the run filled. It goes on with the\n"
                    "same files and settings; of a file whose name\n"
                    "isn't UTF-8 it only reports that it can't be read")
        ->required();
    command_
        .add_option("--species", species_,
                    "A bird to look for, once for each: the record of\n"
                    "a search doesn't hold them")
        ->type_name("NAME")
        ->allow_extra_args(false)
        ->group(RunManner::helpGroup);
    addRunManner(command_, manner_);
    addHelp(command_, RunManner::helpGroup, examples);
}

ExitCode ResumeCommand::run(Console& console) {
    const fs::path destination = existingFolder(destination_);
    const auto record = PausedRun::read(destination, *Files::system());
    if (!record) return tellMissingRecord(destination, console);
    const ResumedRun resumed = resumedRun(*record, destination, targetSpecies(species_));
    requireConsentToBePossible(resumed.options, manner_, console);

    if (!manner_.json) {
        for (const auto& line : pausedRunText(*record, console.columns())) console.line(line);
    }
    tellTargets(resumed.scope.targets, console);
    if (!consents(resumed.scope, resumed.options, manner_, console)) return ExitCode::stopped;
    const ExitCode code = conductRun(resumed.scope, resumed.options, manner_, console);
    if (code == ExitCode::diskFull) addEarlierPart(*record, destination);
    if (code == ExitCode::stopped && !manner_.dryRun) {
        tellWhereTheRecordStands(resumed, console);
    }
    return code;
}

}  // namespace ornivo::cli
