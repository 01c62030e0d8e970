#pragma once

#include <memory>

namespace ornivo::cli {

/// Something that a thread can wait for in `poll`, and that another thread or a signal handler
/// brings about.
class Wakeup {
public:
    Wakeup();
    ~Wakeup();
    Wakeup(const Wakeup&) = delete;
    Wakeup& operator=(const Wakeup&) = delete;

    /// Safe to call from a signal handler.
    void wake() const;
    /// Waits until `wake` was called since the last wait, or for `milliseconds`.
    void wait(int milliseconds) const;

    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

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
