#pragma once

namespace ornivo {

/// What the screens show of a run.
enum class JobState { idle, running, paused };

}  // namespace ornivo
