#pragma once

#include <chrono>
#include <optional>

#include "cli/ProgressLine.h"
#include "cli/ShotLog.h"
#include "cli/TextReporter.h"

namespace ornivo::cli {

/// Follows a run on a terminal with one line that is redrawn in place. Only shots that failed get
/// a line that stays.
class TerminalReporter : public TextReporter {
public:
    using TextReporter::TextReporter;

    void take(const SortEngine::Event& event) override;
    void stopping() override;
    void tick() override;

private:
    using Clock = std::chrono::steady_clock;

    void draw();
    void drawIfDue();
    void erase();

    ShotLog log_{scope()};
    RunProgress progress_;
    std::optional<Clock::time_point> started_;
    Clock::time_point drawnAt_;
    bool isDrawn_ = false;
};

}  // namespace ornivo::cli
