#include "app/BackgroundWork.h"

#include <QMetaObject>
#include <QThread>

namespace ornivo::app {
namespace {

/// More than one machine's cores, as this work waits for disks: a quick scan must not wait for a
/// slow one.
constexpr int threadLimit = 8;

}  // namespace

BackgroundWork::BackgroundWork() {
    for (QThreadPool* const threads : {&useful_, &awaited_}) {
        threads->setMaxThreadCount(threadLimit);
    }
    useful_.setThreadPriority(QThread::IdlePriority);
}

BackgroundWork::~BackgroundWork() {
    useful_.clear();
    awaited_.clear();
    finish();
}

void BackgroundWork::finish() {
    useful_.waitForDone();
    awaited_.waitForDone();
}

void BackgroundWork::start(Priority priority, std::function<void()> work) {
    threadsFor(priority).start(std::move(work));
}

void BackgroundWork::post(std::function<void()> step) {
    QMetaObject::invokeMethod(&home_, std::move(step), Qt::QueuedConnection);
}

}  // namespace ornivo::app
