#pragma once

#include "cli/RunReporter.h"
#include "engine/SortEngine.h"

namespace ornivo::cli {

/// Starts a Sort run and follows it to its end, passing every event on. Ctrl-C and its like stop
/// the run between two files; a second one ends the program.
SortEngine::SortFinished followRun(SortEngine& engine, SortEngine::RunInput input,
                                   RunReporter& reporter);

}  // namespace ornivo::cli
