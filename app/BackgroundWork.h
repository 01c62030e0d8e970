#pragma once

#include <QObject>
#include <QThreadPool>
#include <chrono>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace ornivo::app {

/// Work done away from the main thread, on values: what comes of it is handed back to the main
/// thread, in the order in which it gets ready. Once this object has gone, nothing is handed back.
class BackgroundWork {
public:
    /// What the user waits for, and what is merely useful: that works when nothing else does.
    enum class Priority { utility, userInitiated };

    BackgroundWork();
    /// Waits for work that has begun; what has not is dropped.
    ~BackgroundWork();
    BackgroundWork(const BackgroundWork&) = delete;
    BackgroundWork& operator=(const BackgroundWork&) = delete;

    /// Runs `work` on a thread of its own, then `take` on this object's with what it answered.
    template <typename Work, typename Take>
    void run(Priority priority, Work work, Take take) {
        using Result = std::invoke_result_t<Work>;
        start(priority, [this, work = std::move(work), take = std::move(take)]() mutable {
            // Handed on as a shared value, since a functor that is posted must be copyable.
            auto result = std::make_shared<Result>(work());
            post([take = std::move(take), result] { take(std::move(*result)); });
        });
    }

    /// Waits for all work; what is to be handed back is still to come.
    void finish();

private:
    QThreadPool& threadsFor(Priority priority) {
        return priority == Priority::utility ? useful_ : awaited_;
    }
    void start(Priority priority, std::function<void()> work);
    void post(std::function<void()> step);

    /// Lives on the main thread; steps still on their way to it go with it.
    QObject home_;
    QThreadPool useful_;
    QThreadPool awaited_;
};

}  // namespace ornivo::app
