#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace ornivo {

/// An ordered, unbounded channel with an end, for one writer and one reader. Values are never
/// dropped and the writer never waits for the reader. The two ends are handles on a shared state
/// and may live on different threads; either may go before the other.
template <typename Value>
class EventStream {
public:
    /// Answers a stream that is open and empty.
    EventStream() : state_(std::make_shared<State>()) {}

    /// Adds a value at the end. Called by the writer.
    void emit(Value value) {
        notify([&] { state_->values.push_back(std::move(value)); });
    }

    /// Ends the stream: the reader gets what is still in it and then nothing. Called by the writer.
    void finish() {
        notify([&] { state_->finished = true; });
    }

    /// Waits for the next value; absent once the stream has ended and everything was read.
    std::optional<Value> next() {
        std::unique_lock lock(state_->mutex);
        state_->changed.wait(lock, [&] { return state_->finished || !state_->values.empty(); });
        return take();
    }

    /// The next value, if one is there now.
    std::optional<Value> tryNext() {
        const std::lock_guard lock(state_->mutex);
        return take();
    }

    /// Whether the stream has ended and everything was read.
    bool isAtEnd() const {
        const std::lock_guard lock(state_->mutex);
        return state_->finished && state_->values.empty();
    }

    /// Has `hook` called after each change, on the writer's thread, so that a reader with a loop of
    /// its own need not wait in `next`. Called at once if there is something to read already. The
    /// writer goes on only when it returns; a hook that is replaced may still be in a last call.
    void onReadable(const std::function<void()>& hook) {
        {
            const std::lock_guard lock(state_->mutex);
            state_->hook = hook;
            if (state_->values.empty() && !state_->finished) return;
        }
        if (hook) hook();
    }

private:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        std::deque<Value> values;
        bool finished = false;
        std::function<void()> hook;
    };

    template <typename Change>
    void notify(Change change) {
        std::function<void()> hook;
        {
            const std::lock_guard lock(state_->mutex);
            change();
            hook = state_->hook;
        }
        state_->changed.notify_one();
        if (hook) hook();
    }

    /// The state is locked.
    std::optional<Value> take() {
        if (state_->values.empty()) return std::nullopt;
        std::optional<Value> value = std::move(state_->values.front());
        state_->values.pop_front();
        return value;
    }

    std::shared_ptr<State> state_;
};

}  // namespace ornivo
