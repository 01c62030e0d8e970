#pragma once

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

private:
    int descriptor_;
};

}  // namespace ornivo::cli
