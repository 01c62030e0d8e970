#include "cli/MissingRecord.h"

#include <string>

#include "cli/TerminalText.h"
#include "engine/PausedRun.h"

namespace ornivo::cli {

ExitCode tellMissingRecord(const std::filesystem::path& destination, Console& console) {
    const auto record = PausedRun::manifestURL(destination);
    const std::string why =
        Files::system()->exists(record)
            ? "The record of a paused run in \"" + record.string() +
                  "\" can't be used: it is damaged, or of another version of the program."
            : "There is no paused run in \"" + destination.string() + "\".";
    console.note(printable(why), Tone::error);
    return ExitCode::someFailed;
}

}  // namespace ornivo::cli
