#pragma once

#include <condition_variable>
#include <mutex>
#include <stop_token>

namespace ornivo {

/// The switch between the user's buttons and the run loop, which consults it at the top of each
/// file. Every operation is one indivisible step, may come from any thread, and works from any
/// state. At most one thread waits in `check` at a time.
class JobController {
public:
    enum class State { idle, running, paused, stopped };

    State state() const;
    bool isStopped() const;

    /// A run starts.
    void reset();
    /// The run has ended.
    void markIdle();
    /// The loop waits at the top of the next file.
    void pause();
    /// The loop goes on. Takes back a stop that the loop has not seen yet.
    void resume();
    /// The loop ends the run at the top of the next file.
    void stop();

    /// In the state `paused`, waits for a resume or a stop; then answers whether the run goes on,
    /// which it does also when it has been paused anew by then. A caller that is abandoned does
    /// not wait, and gets the answer of a stop.
    bool check(const std::stop_token& abandoned = {});

private:
    void change(State state);
    void changeAndWake(State state);

    mutable std::mutex mutex_;
    std::condition_variable_any woken_;
    State state_ = State::idle;
    /// What a waiting loop watches: of the states it might see only the last of several changes.
    unsigned wakeUps_ = 0;
};

}  // namespace ornivo
