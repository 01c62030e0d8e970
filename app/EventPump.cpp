#include "app/EventPump.h"

#include <QMetaObject>
#include <chrono>
#include <cstddef>
#include <iterator>
#include <mutex>
#include <utility>

namespace ornivo::app {
namespace {

constexpr std::chrono::milliseconds frame{16};

/// Applying so many takes a fraction of a frame, and no engine files as many in one. Without a
/// limit, a writer faster than this reader would never let it go.
constexpr std::size_t mostAtOnce = 2000;

}  // namespace

struct EventPump::Wakeup {
    /// Called on the engine's thread. Does nothing while an earlier call has not been heard.
    void ring() {
        if (isRinging.exchange(true)) return;
        const std::lock_guard lock(mutex);
        if (!pump) return;
        QMetaObject::invokeMethod(
            pump, [pump = pump] { pump->wake(); }, Qt::QueuedConnection);
    }

    void forget() {
        const std::lock_guard lock(mutex);
        pump = nullptr;
    }

    std::atomic<bool> isRinging = false;
    std::mutex mutex;
    EventPump* pump = nullptr;
};

EventPump::EventPump(QObject* parent) : QObject(parent) {
    restOfFrame_.setSingleShot(true);
    restOfFrame_.setTimerType(Qt::PreciseTimer);
    connect(&restOfFrame_, &QTimer::timeout, this, &EventPump::drain);
}

EventPump::~EventPump() {
    stop();
}

void EventPump::follow(Stream stream, Take take, End end) {
    stop();
    take_ = std::move(take);
    end_ = std::move(end);
    wakeup_ = std::make_shared<Wakeup>();
    wakeup_->pump = this;
    stream_ = std::move(stream);
    stream_->onReadable([wakeup = wakeup_] { wakeup->ring(); });
}

void EventPump::stop() {
    if (!stream_) return;
    stream_->onReadable({});
    wakeup_->forget();
    wakeup_.reset();
    stream_.reset();
    restOfFrame_.stop();
}

void EventPump::wake() {
    if (!stream_ || restOfFrame_.isActive()) return;
    const auto passed =
        std::chrono::milliseconds(sinceDrain_.isValid() ? sinceDrain_.elapsed() : frame.count());
    if (passed >= frame) {
        drain();
    } else {
        restOfFrame_.start(frame - passed);
    }
}

void EventPump::drain() {
    if (!stream_) return;
    // Before reading, so that what arrives meanwhile rings again.
    wakeup_->isRinging = false;
    std::vector<Event> events;
    while (events.size() < mostAtOnce) {
        auto event = stream_->tryNext();
        if (!event) break;
        events.push_back(std::move(*event));
    }
    // There may be more, and nobody else to say so.
    if (events.size() == mostAtOnce) wakeup_->ring();
    const bool isAtEnd = stream_->isAtEnd();
    if (!events.empty()) take_(std::move(events));
    sinceDrain_.restart();
    if (!isAtEnd) return;
    stop();
    // A copy, as the end of one run may begin the next.
    const End end = std::exchange(end_, {});
    end();
}

}  // namespace ornivo::app
