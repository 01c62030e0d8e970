#pragma once

#include "cli/RunEnd.h"
#include "cli/RunReporter.h"
#include "engine/SortEngine.h"

namespace ornivo::cli {

/// Starts a run and follows it to its end, passing every event on. Ctrl-C and its like stop
/// the run between two files; a second one ends the program.
RunEnd followRun(SortEngine& engine, SortEngine::RunInput input, RunReporter& reporter);

}  // namespace ornivo::cli
