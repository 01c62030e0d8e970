#pragma once

#include <string>

#include "engine/PausedRun.h"

/// What the card of a paused run says of it beside its summary, in the window and on the command
/// line alike.
namespace ornivo {

/// Why the run stopped, and what that means for the files.
std::string stopExplanation(const PausedRun& run);

/// From which confidence on it called a bird: the level by name, or the gate.
std::string callDescription(const PausedRun& run);

}  // namespace ornivo
