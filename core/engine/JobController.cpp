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
    change(State::running);
}

void JobController::stop() {
    change(State::stopped);
}

bool JobController::check(const std::stop_token& abandoned) {
    std::unique_lock lock(mutex_);
    woken_.wait(lock, abandoned, [&] { return state_ != State::paused; });
    return state_ != State::stopped && !abandoned.stop_requested();
}

void JobController::change(State state) {
    {
        const std::lock_guard lock(mutex_);
        state_ = state;
    }
    woken_.notify_one();
}

}  // namespace ornivo
