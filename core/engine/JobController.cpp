#include "engine/JobController.h"

namespace ornivo {

JobController::State JobController::state() const {
    const std::lock_guard lock(mutex_);
    return state_;
}

bool JobController::isStopped() const {
    return state() == State::stopped;
}

void JobController::reset() {
    change(State::running);
}

void JobController::markIdle() {
    change(State::idle);
}

void JobController::pause() {
    change(State::paused);
}

void JobController::resume() {
    changeAndWake(State::running);
}

void JobController::stop() {
    changeAndWake(State::stopped);
}

bool JobController::check(const std::stop_token& abandoned) {
    std::unique_lock lock(mutex_);
    if (state_ == State::paused) {
        const auto before = wakeUps_;
        woken_.wait(lock, abandoned, [&] { return wakeUps_ != before; });
    }
    return state_ != State::stopped && !abandoned.stop_requested();
}

void JobController::change(State state) {
    const std::lock_guard lock(mutex_);
    state_ = state;
}

void JobController::changeAndWake(State state) {
    {
        const std::lock_guard lock(mutex_);
        state_ = state;
        ++wakeUps_;
    }
    woken_.notify_one();
}

}  // namespace ornivo
