#include "cli/TerminalReporter.h"

#include <string>
#include <variant>

#include "cli/TerminalText.h"

namespace ornivo::cli {

namespace {

constexpr std::chrono::milliseconds betweenDraws{50};
constexpr const char* toLineStart = "\r";
constexpr const char* clearToLineEnd = "\x1b[K";

}  // namespace

void TerminalReporter::take(const SortEngine::Event& event) {
    const auto shot = log_.take(event);
    if (shot && shot->failure) {
        erase();
        console().line(printable(shotLine(*shot)), toneOf(*shot));
    }
    if (std::holds_alternative<SortEngine::SortFinished>(event) ||
        std::holds_alternative<SortEngine::FindFinished>(event)) {
        erase();
        started_.reset();
    }
    if (const auto* update = std::get_if<ProgressUpdate>(&event)) {
        if (!started_) started_ = Clock::now();
        progress_.before = static_cast<int>(scope().startIndex());
        progress_.done = update->current;
        progress_.total = update->total;
        progress_.fileName = update->fileName;
        drawIfDue();
    }
}

void TerminalReporter::stopping() {
    progress_.stopping = true;
    if (started_) draw();
}

void TerminalReporter::tick() {
    if (started_) drawIfDue();
}

void TerminalReporter::drawIfDue() {
    if (Clock::now() - drawnAt_ >= betweenDraws) draw();
}

void TerminalReporter::draw() {
    drawnAt_ = Clock::now();
    isDrawn_ = true;
    progress_.elapsedSeconds = std::chrono::duration<double>(drawnAt_ - *started_).count();
    // The last column stays free: some terminals begin a new line once it is filled.
    const auto line = progressLine(progress_, console().columns() - 1);
    console().write(toLineStart + console().styled(line.bar, Tone::accent) + line.rest +
                    clearToLineEnd);
}

void TerminalReporter::erase() {
    if (!isDrawn_) return;
    console().write(std::string(toLineStart) + clearToLineEnd);
    isDrawn_ = false;
}

}  // namespace ornivo::cli
