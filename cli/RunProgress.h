#pragma once

#include <string>

namespace ornivo::cli {

/// A run under way, as its progress line shows it.
struct RunProgress {
    /// Files dealt with.
    int done = 0;
    /// Files in all.
    int total = 0;
    double elapsedSeconds = 0;
    std::string fileName;
    /// Whether the run has been asked to stop and is finishing a file.
    bool stopping = false;
    /// Those of `done` that an earlier part of the run dealt with.
    int before = 0;
};

}  // namespace ornivo::cli
