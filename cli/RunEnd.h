#pragma once

#include <variant>

#include "engine/SortEngine.h"

namespace ornivo::cli {

/// How a run of either mode ended: its last event.
using RunEnd = std::variant<SortEngine::SortFinished, SortEngine::FindFinished>;

}  // namespace ornivo::cli
