#include "cli/LineReporter.h"

#include "cli/TerminalText.h"

namespace ornivo::cli {

void LineReporter::take(const SortEngine::Event& event) {
    if (const auto shot = log_.take(event)) console().line(printable(shotLine(*shot)));
}

void LineReporter::stopping() {
    console().note("Stopping after this file.");
}

}  // namespace ornivo::cli
