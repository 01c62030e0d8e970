#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <stop_token>
#include <system_error>
#include <thread>
#include <utility>
#include <variant>
#include <vector>

namespace ornivo {

/// Works through a numbered list of tasks ahead of the one who takes their results, who gets them
/// in the list's order. Tasks run on threads of this object's own, several at a time; no more than
/// `window()` of them are begun and not yet taken, so that memory stays flat and a reader who
/// stops taking stops the work.
///
/// One thread makes the object, takes, and destroys it. The destructor begins no further task and
/// waits for those in flight.
template <typename Result>
class LookAhead {
public:
    using Task = std::function<Result(std::size_t)>;

    /// `task` is called once for each number from 0 below `count`, from any thread. Without
    /// workers it is called by `take` itself.
    LookAhead(std::size_t count, unsigned workers, Task task)
        : count_(count), task_(std::move(task)), ring_(std::size_t{2} * workers) {
        const std::size_t wanted = std::min<std::size_t>(workers, count);
        threads_.reserve(wanted);
        try {
            while (threads_.size() < wanted) {
                threads_.emplace_back([this](const std::stop_token& stop) { workUntil(stop); });
            }
        } catch (const std::system_error&) {
            // The system spares fewer threads than wished for: those that there are will do.
        }
    }

    ~LookAhead() {
        for (auto& thread : threads_) thread.request_stop();
    }

    LookAhead(const LookAhead&) = delete;
    LookAhead& operator=(const LookAhead&) = delete;

    /// How many tasks may be begun and not yet taken.
    std::size_t window() const { return ring_.size(); }

    /// Waits for the next result in the list's order. Raises what its task raised. Called at most
    /// `count` times.
    Result take() {
        if (threads_.empty()) return task_(taken_++);
        Outcome outcome = takeOutcome();
        if (const auto* failure = std::get_if<std::exception_ptr>(&outcome)) {
            std::rethrow_exception(*failure);
        }
        return std::get<Result>(std::move(outcome));
    }

private:
    using Outcome = std::variant<std::monostate, Result, std::exception_ptr>;

    Outcome takeOutcome() {
        std::unique_lock lock(mutex_);
        Outcome& slot = ring_[taken_ % ring_.size()];
        changed_.wait(lock, [&] { return !std::holds_alternative<std::monostate>(slot); });
        ++taken_;
        Outcome outcome = std::exchange(slot, Outcome());
        lock.unlock();
        changed_.notify_all();
        return outcome;
    }

    void workUntil(const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        while (true) {
            changed_.wait(lock, stop,
                          [&] { return begun_ == count_ || begun_ < taken_ + ring_.size(); });
            if (stop.stop_requested() || begun_ == count_) return;
            const std::size_t number = begun_++;
            lock.unlock();
            Outcome outcome = outcomeOf(number);
            lock.lock();
            ring_[number % ring_.size()] = std::move(outcome);
            changed_.notify_all();
        }
    }

    Outcome outcomeOf(std::size_t number) const {
        try {
            return task_(number);
        } catch (...) {
            return std::current_exception();
        }
    }

    const std::size_t count_;
    const Task task_;
    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::size_t begun_ = 0;
    std::size_t taken_ = 0;
    /// The result of a task lies in the slot of its number modulo the window.
    std::vector<Outcome> ring_;
    /// Last, so that the threads are gone before what they use.
    std::vector<std::jthread> threads_;
};

}  // namespace ornivo
