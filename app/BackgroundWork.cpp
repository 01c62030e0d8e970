#include "app/BackgroundWork.h"

#include <QMetaObject>

namespace ornivo::app {
namespace {

/// More than one machine's cores, as this work waits for disks: a quick scan must not wait for a
/// slow one.
constexpr int threadLimit = 8;

}  // namespace

BackgroundWork::BackgroundWork() {
    threads_.setMaxThreadCount(threadLimit);
}

BackgroundWork::~BackgroundWork() {
    threads_.clear();
    threads_.waitForDone();
}

void BackgroundWork::start(Priority priority, std::function<void()> work) {
    threads_.start(std::move(work), static_cast<int>(priority));
}

void BackgroundWork::post(std::function<void()> step) {
    QMetaObject::invokeMethod(&home_, std::move(step), Qt::QueuedConnection);
}

}  // namespace ornivo::app
