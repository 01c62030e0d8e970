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
};

/// One line of text; the bar stands apart so that it may have a colour of its own.
struct ProgressLine {
    std::string bar;
    std::string rest;

    bool operator==(const ProgressLine&) const = default;
};

/// Bar, count, photographs a second, time left and the file's name, in at most so many columns.
/// Where room is short the words go first, then the rate, then the name, then all but the count.
ProgressLine progressLine(const RunProgress& progress, int columns);

}  // namespace ornivo::cli
