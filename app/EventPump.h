#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "engine/SortEngine.h"

namespace ornivo::app {

/// Brings a run's events from the engine's thread to this object's. The engine never waits for it,
/// and it never waits for the engine: it wakes when there is something to read, takes all that has
/// piled up, and then leaves the thread to the screen for at least the length of a frame.
class EventPump : public QObject {
    Q_OBJECT

public:
    using Event = SortEngine::Event;
    using Stream = EventStream<Event>;
    /// Takes the events in their order, none left out and at least one at a time.
    using Take = std::function<void(std::vector<Event> events)>;
    /// After the last event.
    using End = std::function<void()>;

    explicit EventPump(QObject* parent = nullptr);
    ~EventPump() override;

    /// Follows a stream to its end, in place of the one followed before.
    void follow(Stream stream, Take take, End end);
    /// Forgets the stream; what is still in it is not taken.
    void stop();
    bool isFollowing() const { return stream_.has_value(); }

private:
    /// What the engine's thread knows of the pump: it may outlive it.
    struct Wakeup;

    void wake();
    void drain();

    std::optional<Stream> stream_;
    Take take_;
    End end_;
    std::shared_ptr<Wakeup> wakeup_;
    /// Runs for the rest of a frame when something arrives within one, otherwise never.
    QTimer restOfFrame_;
    QElapsedTimer sinceDrain_;
};

}  // namespace ornivo::app
