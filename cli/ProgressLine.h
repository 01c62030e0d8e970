#pragma once

#include <string>

#include "cli/RunProgress.h"

namespace ornivo::cli {

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
