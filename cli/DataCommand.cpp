#include "cli/DataCommand.h"

#include <vector>

#include "cli/CommandHelp.h"
#include "cli/TerminalText.h"
#include "cli/UsageError.h"
#include "identification/BundleFingerprint.h"
#include "platform/Error.h"
#include "platform/Files.h"

namespace ornivo::cli {

namespace {

using BundleFingerprint::Summary;

const std::vector<Example> examples{
    {"ornivo-cli data", "a short identity of the data"},
    {"ornivo-cli data --summary > expected.json", "what there is of each, to compare with later"},
    {"ornivo-cli data --verify expected.json", "does it still agree? Exit code 1 if not"},
    {"ornivo-cli data --deep", "the SHA-256 of every file"},
};

Summary readSummary(const std::string& file) {
    try {
        return Summary::fromJson(Files::system()->read(file));
    } catch (const Error& error) {
        throw UsageError("No summary could be read from " + file + ": " +
                         error.localizedDescription() + ".");
    }
}

ExitCode verify(const Summary& expected, Console& console) {
    const auto verdict = BundleFingerprint::verify(expected);
    if (verdict.isMatch()) {
        console.line("✓ The data are as expected.", Tone::accent);
        return ExitCode::done;
    }
    for (const std::string& difference : verdict.differences) {
        console.line(printable(difference), Tone::warning);
    }
    return ExitCode::someFailed;
}

}  // namespace

DataCommand::DataCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("data", "Check the data that ship with it")) {
    command_.add_option("--verify", expected_, "Compare with a summary taken earlier")
        ->type_name("FILE");
    command_.add_flag("--summary", summary_, "Counts of each table, as JSON");
    command_.add_flag("--deep", deep_, "The digest of every file");
    addHelp(command_, "Options", examples);
}

ExitCode DataCommand::run(Console& console) {
    if (expected_.has_value() + summary_ + deep_ > 1) {
        throw UsageError("--verify, --summary and --deep are three questions: ask one at a time.");
    }
    if (expected_) return verify(readSummary(*expected_), console);
    if (deep_) {
        for (const auto& [name, hash] : BundleFingerprint::deep()) {
            console.line(name + "  " + hash);
        }
        return ExitCode::done;
    }
    const Summary summary = BundleFingerprint::summary();
    console.line(summary_ ? summary.toJson() : summary.digest());
    return ExitCode::done;
}

}  // namespace ornivo::cli
