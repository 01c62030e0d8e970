#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <string>
#include <system_error>
#include <vector>

#include "cli/CheckCommand.h"
#include "cli/CommandHelp.h"
#include "cli/CreditsCommand.h"
#include "cli/DataCommand.h"
#include "cli/DiscardCommand.h"
#include "cli/FileDecisionsCommand.h"
#include "cli/FindCommand.h"
#include "cli/IdentifyCommand.h"
#include "cli/PlaceCommand.h"
#include "cli/QualityCommand.h"
#include "cli/RegionsCommand.h"
#include "cli/ResumeCommand.h"
#include "cli/SortCommand.h"
#include "cli/SpeciesCommand.h"
#include "cli/TerminalText.h"
#include "cli/UsageError.h"

namespace ornivo::cli {

namespace {

constexpr const char* about = "Sorts bird photographs into species folders, on this machine.";

const std::vector<Example> examples{
    {"ornivo-cli sort ~/Pictures/Inbox ~/Pictures/Birds",
     "copy every shot into a folder of its species"},
    {"ornivo-cli find osprey --in ~/Pictures/Inbox --to ~/Pictures/Ospreys",
     "copy out the shots of one bird"},
    {"ornivo-cli identify IMG_2041.jpg", "what bird is it?"},
    {"ornivo-cli species heron", "is it a bird that can be recognised?"},
    {"ornivo-cli sort --help", "more on one command"},
};

constexpr const char* exitCodes =
    "\n\nExit codes: 0 done, 1 some files failed, 2 wrong usage, 3 stopped, 4 disk full.";

/// The program's arguments and commands. A new command is one more member here.
class Program {
public:
    Program() {
        app_.set_version_flag("--version", "ornivo-cli " ORNIVO_VERSION, "Show the version");
        // More than one would take a folder named like a command for that command.
        app_.require_subcommand(0, 1);
        addHelp(app_, "Options", examples);
        app_.footer(app_.get_footer() + exitCodes);
    }

    ExitCode run(int argc, const char* const* argv, Console& console) {
        try {
            app_.parse(argc, argv);
        } catch (const CLI::CallForVersion& version) {
            console.line(version.what());
            return ExitCode::done;
        } catch (const CLI::Success&) {
            return help(console);
        } catch (const CLI::ParseError& error) {
            throw UsageError(std::string(error.what()) + ". " + hint());
        }
        for (Command* const command : commands_) {
            if (command->chosen()) return command->run(console);
        }
        return help(console);
    }

private:
    ExitCode help(Console& console) {
        console.write(helpText(app_));
        return ExitCode::done;
    }

    std::string hint() const {
        const auto chosen = app_.get_subcommands();
        const std::string command = chosen.empty() ? "" : chosen.front()->get_name() + " ";
        return "Try: ornivo-cli " + command + "--help";
    }

    CLI::App app_{about, "ornivo-cli"};
    SortCommand sort_{app_};
    FindCommand find_{app_};
    ResumeCommand resume_{app_};
    DiscardCommand discard_{app_};
    FileDecisionsCommand fileDecisions_{app_};
    CheckCommand check_{app_};
    IdentifyCommand identify_{app_};
    QualityCommand quality_{app_};
    SpeciesCommand species_{app_};
    RegionsCommand regions_{app_};
    PlaceCommand place_{app_};
    DataCommand data_{app_};
    CreditsCommand credits_{app_};
    const std::vector<Command*> commands_{
        &sort_,    &find_,    &resume_,  &discard_, &fileDecisions_, &check_,   &identify_,
        &quality_, &species_, &regions_, &place_,   &data_,          &credits_,
    };
};

/// A report that could not be written is a failure of its own.
ExitCode withOutputChecked(ExitCode code, Console& console) {
    const int failure = console.outputFailure();
    if (failure == 0) return code;
    console.note(
        "The output couldn't be written: " + std::generic_category().message(failure) + ".",
        Tone::error);
    return code == ExitCode::done ? ExitCode::someFailed : code;
}

}  // namespace

ExitCode runCommandLine(int argc, const char* const* argv, Console& console) {
    try {
        return withOutputChecked(Program().run(argc, argv, console), console);
    } catch (const UsageError& error) {
        console.note(printable(error.what()), Tone::error);
        return ExitCode::wrongUsage;
    } catch (const std::exception& error) {
        console.note(printable(error.what()), Tone::error);
        return ExitCode::someFailed;
    }
}

}  // namespace ornivo::cli
