#include "cli/PausedRunText.h"

#include <string_view>

#include "cli/TerminalText.h"
#include "engine/PausedRunWords.h"
#include "platform/Paths.h"

namespace ornivo::cli {

namespace {

constexpr std::size_t labelColumns = 13;

std::string sources(const PausedRun& run) {
    std::string names;
    for (const std::string& path : run.sourcePaths) {
        names += (names.empty() ? "" : ", ") + lastPathComponent(path);
    }
    return names;
}

std::string row(std::string_view label, const std::string& value, int columns) {
    std::string start(label);
    start.resize(labelColumns, ' ');
    return start + fitted(printable(value), columns - static_cast<int>(labelColumns));
}

}  // namespace

std::vector<std::string> pausedRunText(const PausedRun& run, int columns) {
    return {
        fitted(printable("⏸ " + run.summary()), columns),
        printable(stopExplanation(run)),
        row("From", sources(run), columns),
        row("To", lastPathComponent(run.destination), columns),
        row("Calls", callDescription(run), columns),
        row("Done so far",
            std::to_string(run.sortedSoFar) + " sorted · " + std::to_string(run.uncertainSoFar) +
                " to review",
            columns),
    };
}

}  // namespace ornivo::cli
