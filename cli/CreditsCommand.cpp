#include "cli/CreditsCommand.h"

#include <vector>

#include "cli/CommandHelp.h"
#include "cli/CreditsText.h"
#include "cli/TerminalText.h"
#include "credits/Credits.h"

namespace ornivo::cli {

namespace {

const std::vector<Example> examples{
    {"ornivo-cli credits", "the photographs, the photographers, the components, the citation"},
    {"ornivo-cli credits --owed", "is anything still owed to them? Exit code 1 if so"},
};

ExitCode tellWhatIsOwed(Console& console) {
    const auto& owed = Credits::outstandingObligations();
    for (const auto& obligation : owed) console.line(printable(obligation), Tone::warning);
    if (owed.empty()) console.line("Nothing is owed.", Tone::accent);
    return owed.empty() ? ExitCode::done : ExitCode::someFailed;
}

}  // namespace

CreditsCommand::CreditsCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("credits", "Tell whose work the program rests on")) {
    command_.add_flag("--owed", owed_, "Only what is still owed to them");
    addHelp(command_, "Options", examples);
}

ExitCode CreditsCommand::run(Console& console) {
    if (owed_) return tellWhatIsOwed(console);
    for (const auto& line : creditsText(Credits::payload())) console.line(printable(line));
    return ExitCode::done;
}

}  // namespace ornivo::cli
