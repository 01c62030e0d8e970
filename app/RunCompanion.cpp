#include "app/RunCompanion.h"

#include <utility>

#include "app/AppStore.h"
#include "app/presentation/RunNotice.h"

namespace ornivo::app {

RunCompanion::RunCompanion(AppStore& store, Services services, std::function<bool()> isInFront,
                           QObject* parent)
    : QObject(parent),
      store_(store),
      services_(std::move(services)),
      isInFront_(std::move(isInFront)) {
    connect(&store_, &AppStore::jobStateChanged, this, &RunCompanion::followJob);
    connect(&store_, &AppStore::progressChanged, this, &RunCompanion::followProgress);
    connect(&store_, &AppStore::runEnded, this, &RunCompanion::tellEnd);
}

void RunCompanion::followJob() {
    if (store_.jobState() == JobState::running) {
        services_.inhibitor->hold(QStringLiteral("Photographs are being filed"));
    } else {
        services_.inhibitor->release();
    }
}

void RunCompanion::followProgress() {
    const auto& progress = store_.progress();
    if (!progress) {
        if (std::exchange(percent_, std::nullopt)) services_.launcher->hideProgress();
        return;
    }
    const double share =
        progress->total > 0 ? static_cast<double>(progress->current) / progress->total : 0;
    const int percent = static_cast<int>(share * 100);
    if (std::exchange(percent_, percent) != percent) services_.launcher->showProgress(share);
}

void RunCompanion::tellEnd() {
    if (isInFront_()) return;
    // A run that goes on from a stopped one leaves the other mode's result where it was.
    if (store_.appMode() == AppMode::sort && store_.sortResult()) {
        notify(noticeOf(*store_.sortResult(), store_.sink()));
    } else if (store_.appMode() == AppMode::find && store_.findResult()) {
        notify(noticeOf(*store_.findResult(), store_.sink()));
    }
}

void RunCompanion::notify(const RunNotice& notice) {
    services_.notifications->show(notice.title, notice.body,
                                  [this](const QByteArray& token) { Q_EMIT windowWanted(token); });
}

}  // namespace ornivo::app
