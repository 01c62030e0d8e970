#pragma once

#include <memory>

#include "cli/Wakeup.h"

namespace ornivo::cli {

/// As long as this lives, the first request to end the program (Ctrl-C, a polite kill, a closed
/// terminal) is only noted, and wakes whoever waits. After it the signals act as they always do,
/// so that a second Ctrl-C ends the program at once. One at a time.
class Interrupt {
public:
    explicit Interrupt(std::shared_ptr<const Wakeup> wakeup);
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    bool requested() const;

private:
    std::shared_ptr<const Wakeup> wakeup_;
};

}  // namespace ornivo::cli
