#pragma once

#include "cli/ShotLog.h"
#include "cli/TextReporter.h"

namespace ornivo::cli {

/// Follows a run with one line for each shot, for files and pipes.
class LineReporter : public TextReporter {
public:
    using TextReporter::TextReporter;

    void take(const SortEngine::Event& event) override;
    void stopping() override;
    void tick() override {}

private:
    ShotLog log_{scope()};
};

}  // namespace ornivo::cli
